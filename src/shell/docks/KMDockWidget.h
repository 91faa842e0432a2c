#pragma once

#include <QDockWidget>

class KMNode;

/// Base of all docks. The object name is the key under which the window remembers where the dock stands.
class KMDockWidget : public QDockWidget
{
    Q_OBJECT
public:
    KMDockWidget(const QString &objectName, const QString &title, const QString &icon, QWidget *parent = nullptr);

    virtual void refresh() {}                           ///< the history moved: what is shown may be another
    virtual void resetDocument() {}                     ///< another document comes: forget every node
    virtual void releaseDocument() { resetDocument(); } ///< the window closes; the document goes next

signals:
    void onNodeChanged(KMNode *node, int type); ///< the user chose a node, a tag, a shader or a texture; null for none
};
