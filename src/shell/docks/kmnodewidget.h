#pragma once

#include "core/KMTreeWidget.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/docks/KMNodeFilter.h"

#include <QPointer>

class KMContainerNode;
class KMNodeClipboard;
class KMNodeComContainer;
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

    KMTreeWidget *tree() const { return m_tree; }                                     ///< null after releaseDocument()
    void setMenuActions(const QList<QAction *> &actions) { m_menuActions = actions; } ///< of the rows; a null is a line
    void setNodeCommands(const KMNodeComContainer *commands) { m_nodeCommands = commands; } ///< of the rows; not owned
    void setTagActions(const QList<QAction *> &actions) { m_tagActions = actions; }         ///< of the tags' menu
    void setClipboard(KMNodeClipboard *clipboard) { m_clipboard = clipboard; } ///< not owned; outlives the dock
    void renameCurrent();                                                      ///< opens the editor of the current row

    /// How the width of the columns comes about; the numbers stand in a file.
    enum ResizeMode { FillPanel, ByHand, FitContents };
    ResizeMode resizeMode() const { return m_resizeMode; }
    void setResizeMode(ResizeMode mode);

    bool edit(Edit edit) override; ///< a selected tag takes the place of its node

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
    void showTagMenu(KMTagBase *tag, const QPoint &globalPosition);
    void showHeaderMenu(const QPoint &position);
    void dropTag(KMTagBase *tag, KMContainerNode *target, const QPoint &position, bool asCopy);
    void renameTag(KMTagBase *tag);
    void deleteTag(KMTagBase *tag);

    QPointer<KMTreeWidget> m_tree; // the project's, which may go first
    KMNodeRowDelegate *m_delegate;
    KMNodeFilter m_filter;
    QLineEdit *m_filterText = nullptr;
    QComboBox *m_filterFamily = nullptr;
    QList<QAction *> m_menuActions;
    QList<QAction *> m_tagActions;
    const KMNodeComContainer *m_nodeCommands = nullptr;
    KMNodeClipboard *m_clipboard = nullptr;
    ResizeMode m_resizeMode = FillPanel;
};
