#pragma once

#include "tools/KMPanelBar.h"

#include <QStringList>

/// A tool bar that the user fills with whatever the menus offer. Name, actions and look lie in "panel.ini"; the name
/// belongs to the settings. Hidden until the user wants it.
class KMCustomPanel : public KMPanelBar
{
    Q_OBJECT
public:
    static constexpr int Count = 4;
    static constexpr const char *Line = "-"; ///< stands for a line between the buttons

    /// The index counts from 0, the texts that the user sees from 1.
    explicit KMCustomPanel(int index, QWidget *parent = nullptr);

    void setPanelName(const QString &name);        ///< an empty one stands for "Custom Panel1"
    QAction *showAction() const { return m_show; } ///< "Show Panel1": opens the panel as a menu at the cursor

    /// By object name, in the order of the buttons. A name that no menu has gets no button but stays: the add-on that
    /// brings it may come back.
    const QStringList &actionNames() const { return m_names; }
    void setActionNames(const QStringList &names);

    void load(); ///< the menus have been made: they are asked for the actions
    void save() const;

public slots:
    void onMenuShowPanel();
    void chooseActions(); ///< asks the user

protected:
    void addEntries(QMenu *menu) override;

private:
    QString key(const char *name) const;

    int m_index;
    QStringList m_names;
    QAction *m_show;
};
