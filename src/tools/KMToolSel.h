#pragma once

#include "render/KMPickRequest.h"
#include "tools/KMTool.h"

#include <QPointer>

#include <memory>

class KMEdgePath;
class KMMeshNode;
class KMSelectionChain;

/// Selects chains of elements that follow from the one under the cursor, and shows them before the click.
class KMToolSel : public KMTool
{
    Q_OBJECT
public:
    enum Mode { Node, RootEdge, ChainedFace, BeltFace, LoopEdge, RingEdge, ModeCount };

    explicit KMToolSel(QWidget *parent = nullptr);
    ~KMToolSel() override;

    void initialize() override;
    void finalize() override;
    void deactivate() override;
    void refresh() override;
    void cancel() override;
    void setMode(int mode) override;

    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    void leave(QEvent *event, KMOpenGLWidget *widget) override;

private:
    KMPickRequest pickAt(const KMMouseEvent &event, const KMOpenGLWidget &widget) const;
    bool pressBone(const KMMouseEvent &event, const KMOpenGLWidget &widget, bool isElementHit);
    KMSelectionChain chainAt(const KMPickRequest &hit);
    KMSelectionChain pathTo(const KMPickRequest &hit);
    void pressRoot(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers);
    bool hasRootIn(const KMMeshNode *mesh) const;
    bool isGraphStale(const KMMeshNode &mesh) const;
    void forgetRoot();
    void show(const KMSelectionChain &chain);
    void hideChain();

    KMToolMesh *m_overlay = nullptr;
    KMPickRequest m_hover; // what the chain was made from that is shown; compared, never used
    QPointer<KMMeshNode> m_rootMesh;
    int m_rootSlots = 0;  // vertex slots of that mesh when it was clicked; others mean other numbers
    int m_lastRoot = -1;  // the vertex from which the next path starts
    int m_graphEdges = 0; // as many as there were when the graph was made
    int m_graphVertices = 0;
    std::unique_ptr<KMEdgePath> m_graph; // of the root's mesh; null until it is needed again
};
