#pragma once

#include "core/KMCommandContainer.h"
#include "tools/KMNodeCommands.h"

class QMenu;

/// The commands on whole nodes.
class KMNodeComContainer : public KMCommandContainer
{
    Q_OBJECT
public:
    explicit KMNodeComContainer(QObject *parent = nullptr);

    void setCameraSource(const NodeComProjection::CameraSource &source); ///< whose view counts; null until it is set

    void fill(QMenu *menu) const; ///< with all, a line between the groups
    /// Appends what works on a node, each group as a submenu; nothing for a node on which nothing does.
    void addMenusFor(const KMNode *node, QMenu *menu) const;

private:
    QList<QAction *> group(KMNodeCommand::Group group, const KMNode *node) const;
};
