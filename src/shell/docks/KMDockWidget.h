#pragma once

#include <QDockWidget>

class KMNode;

/// Base of all docks. The object name is the key under which the window remembers where the dock stands.
class KMDockWidget : public QDockWidget
{
    Q_OBJECT
public:
    KMDockWidget(const QString &objectName, const QString &title, const QString &icon, QWidget *parent = nullptr);

    /// Entries of the Edit menu that a panel may have its own sense of.
    enum class Edit { Cut, Copy, Duplicate, Rename, Delete };
    /// One of them was called while the focus is in the panel. False: it is meant for the nodes of the tree.
    virtual bool edit(Edit) { return false; }
    /// Also what is in a window of its own, but belongs to the panel.
    virtual bool holds(const QWidget *widget) const { return isAncestorOf(widget); }

    virtual void commit() {}                            ///< hands over what is being typed
    virtual void refresh() {}                           ///< the history moved: what is shown may be another
    virtual void resetDocument() {}                     ///< another document comes: forget every node
    virtual void releaseDocument() { resetDocument(); } ///< the window closes; the document goes next

signals:
    void onNodeChanged(KMNode *node, int type); ///< the user chose a node, a tag, a shader or a texture; null for none

protected:
    void showEvent(QShowEvent *event) override;

private:
    void moveOverViews();
};
