#pragma once

#include <QWidget>

struct KMSettingsValues;

/// One page of the preferences. Its editors hold what the user is about to change; nothing outside changes before
/// the dialogue takes the page over.
class KMPreferencesPage : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    virtual void load(const KMSettingsValues &values) = 0; ///< shows the values and forgets what was edited
    virtual void store(KMSettingsValues &values) = 0;      ///< writes what the user has edited, and only that
};
