#pragma once

#include "core/KMDisplayColors.h"
#include "shell/preferences/KMPreferencesPage.h"

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// The display colours as a list; each is chosen with its alpha.
class KMViewColorPage : public KMPreferencesPage
{
    Q_OBJECT
public:
    explicit KMViewColorPage(QWidget *parent = nullptr);

    void load(const KMSettingsValues &values) override;
    void store(KMSettingsValues &values) override;

private:
    void createList();
    QWidget *createButtons();
    void editCurrent();
    void resetCurrent();
    void resetAll();
    void setColor(int index, const QColor &color);
    void showColor(QTreeWidgetItem *item);
    void updateButtons();

    KMDisplayColors m_colors;
    KMDisplayColors m_shown; ///< as they were at the last load
    QTreeWidget *m_list = nullptr;
    QPushButton *m_edit = nullptr;
    QPushButton *m_reset = nullptr;
};
