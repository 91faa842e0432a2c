#pragma once

#include "core/KMTreeWidget.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/docks/KMNodeFilter.h"

#include <QPointer>

class KMContainerNode;
class KMNodeClipboard;
class KMNodeRowDelegate;
class KMTagBase;
class QHBoxLayout;
class QLineEdit;
class QMenu;

/// A panel that shows a tree of rows with their tags, and a field that filters them by name. The tree belongs to the
/// document; the panel turns what the user does in it into steps of the history.
class KMTreeDock : public KMDockWidget
{
    Q_OBJECT
public:
    ~KMTreeDock() override;

    KMTreeWidget *tree() const { return m_tree; } ///< null while none is shown
    QList<QAction *> menuActions() const { return m_menuActions; }
    void setMenuActions(const QList<QAction *> &actions) { m_menuActions = actions; } ///< of the rows; a null is a line
    void setTagActions(const QList<QAction *> &actions) { m_tagActions = actions; }   ///< of the tags' menu
    void setClipboard(KMNodeClipboard *clipboard) { m_clipboard = clipboard; }        ///< not owned; outlives the dock
    static bool deselectTags(const QTreeWidget *tree); ///< of all rows; false where none was selected
    void renameCurrent();                              ///< opens the editor of the current row

    /// How the width of the columns comes about; the numbers stand in a file.
    enum ResizeMode { FillPanel, ByHand, FitContents };
    ResizeMode resizeMode() const { return m_resizeMode; }
    void setResizeMode(ResizeMode mode);

    bool edit(Edit edit) override; ///< tags take the place of nodes where one of them was clicked last

    void refresh() override; ///< keeps the filter true after an edit
    void resetDocument() override;
    void releaseDocument() override; ///< gives the tree back to its owner

signals:
    void tagSelectionChanged(); ///< by what was clicked in the tree

protected:
    /// Objects are named after the key.
    KMTreeDock(const QString &objectName, const QString &title, const QString &icon, const QString &key,
               QWidget *parent);

    void showTree(KMTreeWidget *tree); ///< in place of the former one, which goes back to its owner; null for none
    void clearTagSelection();
    QHBoxLayout *filterRow() const { return m_filterRow; }
    QString key() const { return m_key; }
    void setFamily(KMNodeFilter::Family family); ///< of the rows that are shown
    bool isFilterOn() const { return m_filter.isOn(); }

    virtual void connectTree() {} ///< a tree came; its connections to this panel end when it goes
    virtual void filterChanged(); ///< what is typed or chosen is another
    virtual bool editRows(Edit) { return false; }
    virtual void addEntries(QMenu *, const QTreeWidgetItem *) {} ///< to the menu of a row, null for the space below all
    virtual void dropNodes(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place,
                           bool asCopy) = 0;

private:
    void createFilterRow();
    void prepareTree();
    void setUpHeader();
    void releaseTree();
    void showRow(KMNode *node, bool keepsTags);
    void selectTag(KMTagBase *tag, bool extends); ///< besides the others; one that was selected goes out then
    void showMenu(const QPoint &position);
    void showTagMenu(KMTagBase *tag, const QPoint &globalPosition);
    void showHeaderMenu(const QPoint &position);
    void dropTag(KMTagBase *tag, KMContainerNode *target, const QPoint &position, bool asCopy);
    void renameTag(KMTagBase *tag);
    void duplicateTags(const QList<KMTagBase *> &tags);
    void deleteTags(const QList<KMTagBase *> &tags);

    QString m_key;
    QPointer<KMTreeWidget> m_tree; // its owner may go first
    KMNodeRowDelegate *m_delegate;
    KMNodeFilter m_filter;
    QHBoxLayout *m_filterRow;
    QLineEdit *m_filterText;
    QList<QAction *> m_menuActions;
    QList<QAction *> m_tagActions;
    KMNodeClipboard *m_clipboard = nullptr;
    ResizeMode m_resizeMode = FillPanel;
};
