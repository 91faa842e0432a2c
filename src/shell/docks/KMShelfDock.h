#pragma once

#include "shell/docks/KMDockWidget.h"

#include <QList>

class KMContainerNode;
class KMNodeClipboard;
class QAction;
class QListWidget;
class QListWidgetItem;

/// A panel of tiles, one for each shader or texture of the document, in the order in which the document refers to
/// them. Derived classes say what stands on the shelf and how it looks. A picture is made when its tile is first seen:
/// an import may bring thousands.
class KMShelfDock : public KMDockWidget
{
    Q_OBJECT
public:
    KMShelfDock(const QString &objectName, const QString &title, const QString &icon, QWidget *parent = nullptr);

    void setClipboard(KMNodeClipboard *clipboard) { m_clipboard = clipboard; }        ///< not owned; outlives the dock
    void setEditActions(const QList<QAction *> &actions) { m_editActions = actions; } ///< of a tile, in its menu
    void setAddActions(const QList<QAction *> &actions) { m_addActions = actions; }   ///< stand first in the menu

    bool edit(Edit edit) override;
    void refresh() override; ///< names and pictures of the tiles, and which one is current
    void resetDocument() override;

protected:
    virtual QList<KMContainerNode *> nodes() const = 0;
    virtual QPixmap picture(KMContainerNode *node, const QSize &size) const = 0;
    virtual QByteArray pictureKey(KMContainerNode *node) const = 0; ///< another one: the picture has to be made anew
    virtual KMContainerNode *current() const = 0;
    virtual void setCurrent(KMContainerNode *node) = 0;

    void refill(); ///< the live list is another

private:
    class Tile;
    static KMContainerNode *nodeOf(const QListWidgetItem *tile);
    QIcon icon(KMContainerNode *node) const;
    void choose(QListWidgetItem *tile);
    void rename(QListWidgetItem *tile);
    void remove(QListWidgetItem *tile);
    void showTile(Tile *tile);
    void showMenu(const QPoint &position);

    QListWidget *m_list;
    QList<QAction *> m_addActions;
    QList<QAction *> m_editActions;
    KMNodeClipboard *m_clipboard = nullptr;
};
