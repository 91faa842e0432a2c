#pragma once

#include "core/KMTreeWidget.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/docks/KMNodeFilter.h"

#include <QPointer>

class KMContainerNode;
class KMNodeRowDelegate;
class KMTagBase;
class QComboBox;
class QLineEdit;
class QMenu;
class QVBoxLayout;

/// The tree of the document with a field that filters it. The tree itself is the project's; the panel shows it and
/// turns what the user does in it into steps of the history.
class kmnodewidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmnodewidget(KMTreeWidget *tree, QWidget *parent = nullptr);
    ~kmnodewidget() override;

    KMTreeWidget *tree() const { return m_tree; } ///< null after releaseDocument()
    void setMenuActions(const QList<QAction *> &actions)
    {
        m_menuActions = actions;
    }                     ///< of the rows' menu; a null is a line
    void renameCurrent(); ///< opens the editor of the current row

    void refresh() override; ///< keeps the filter true after an edit
    void resetDocument() override;
    void releaseDocument() override; ///< gives the tree back to the project

private:
    void createFilterRow(QVBoxLayout *layout);
    void prepareTree();
    void setUpHeader();
    void filterChanged();
    void selectTag(KMTagBase *tag);
    void clearTagSelection();
    void showMenu(const QPoint &position);
    void addTagEntries(QMenu *menu, KMContainerNode *node);
    void showTagMenu(KMTagBase *tag, const QPoint &globalPosition);

    QPointer<KMTreeWidget> m_tree; // the project's, which may go first
    KMNodeRowDelegate *m_delegate;
    KMNodeFilter m_filter;
    QLineEdit *m_filterText = nullptr;
    QComboBox *m_filterFamily = nullptr;
    QList<QAction *> m_menuActions;
};
