#pragma once

#include "shell/preferences/KMPreferencesPage.h"
#include "shell/preferences/KMSettingEditor.h"

#include <QVector>

class QFormLayout;
struct KMSettingField;

/// A page of the preferences made from a table of fields.
class KMFormPage : public KMPreferencesPage
{
    Q_OBJECT
public:
    explicit KMFormPage(const QVector<KMSettingField> &fields, QWidget *parent = nullptr);

    void load(const KMSettingsValues &values) override;
    void store(KMSettingsValues &values) override;

private:
    struct Entry
    {
        const KMSettingsRow *row;
        KMSettingEditor editor;
        QVariant shown; ///< what the editor held after the last load
    };

    void addField(QFormLayout *layout, const KMSettingField &field);
    void addHeading(QFormLayout *layout, const char *heading);
    void addRestartNote(QFormLayout *layout);
    void bindEnabled(const KMSettingField &field, QWidget *editor, QWidget *label);

    QVector<Entry> m_entries;
};
