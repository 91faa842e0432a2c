#pragma once

#include <QVariant>

#include <functional>

class QWidget;
struct KMSettingField;
struct KMSettingsRow;

/// The widget that edits one setting, with what shows a value in it and what reads it back.
/// The part of it that takes the input bears the key of the setting as object name.
struct KMSettingEditor
{
    QWidget *widget = nullptr;
    std::function<void(const QVariant &)> show;
    std::function<QVariant()> value; ///< invalid when the editor shows a number that it has no entry for
};

KMSettingEditor makeSettingEditor(const KMSettingField &field, const KMSettingsRow &row, QWidget *parent);
