#pragma once

#include "support/MeshFixtures.h"
#include "support/TestWindow.h"
#include "support/ViewMouse.h"

#include <functional>

class KMToolBar;
struct KMEditFilter;

/// The window with four views, a mesh in the scene, forty times the size of the fixture, and a tool in the hand.
struct ToolWindow : TestWindow
{
    static constexpr float Size = 40.0f;                                 ///< of the fixture's unit
    static constexpr int Top = 3, Perspective = 4, Front = 5, Right = 6; ///< numbers of views

    ToolWindow(KMMeshNode *shape, int toolId); ///< takes the mesh over; with none the document is empty
    void add(KMMeshNode *shape);               ///< as a step of the history
    bool isReady() const;                      ///< waits until the views can draw

    KMOpenGLWidget *view(int index) const;
    QPointF at(int viewIndex, const kvm::Vector3 &point) const; ///< window pixels
    QPointF at(int viewIndex, int vertex) const;
    /// A place on a part of the handle along one of its axes, so many units from its middle.
    QPointF onHandle(int viewIndex, int axis, float units) const;
    void drag(int viewIndex, const QPointF &from, const QPointF &way, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void filter(const KMEditFilter &filter);

    QList<int> selectedVertices() const;
    int selectedEdges() const;
    int selectedFaces() const;

    /// What is wrong with a gesture that has to be one step of the history; nothing when all is right.
    QString stepFailure(const QString &stepText, const std::function<void()> &gesture);
    QString text(); ///< the document, without what is marked under the cursor

    KMMeshNode *mesh;
    KMToolBar *bar;
    MeshDump dump;
};

#define ONE_STEP(window, text, ...) QCOMPARE((window).stepFailure(QStringLiteral(text), __VA_ARGS__), QString())
