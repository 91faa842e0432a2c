#include "support/ToolWindow.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMPicker.h"
#include "shell/KMMainBox.h"
#include "shell/kmmainwidget.h"
#include "support/CommandProof.h"
#include "tools/KMTool.h"
#include "tools/KMToolBar.h"

#include <QTest>

#include <algorithm>

namespace {

template <class Records>
int countSelected(const Records &records)
{
    int count = 0;
    for (const auto *record : records)
        count += record && record->hasFlag(KMElementFlag::Selected);
    return count;
}

} // namespace

ToolWindow::ToolWindow(KMMeshNode *shape, int toolId)
    : mesh(shape)
    , bar(static_cast<KMToolBar *>((*this)->toolBar()))
{
    for (int i = 0; i < mesh->vertexCount(); ++i)
        mesh->setPosition(i, mesh->position(i) * Size);
    (*this)->mainBox()->setViewMode(KMOpenGLContainer::Quad);
    gProject->addNode(mesh);
    gSolution->clearHistory();
    gProject->tree()->setCurrentItem(mesh->item());
    bar->tool(toolId)->requestActivation();
}

bool ToolWindow::isReady() const
{
    return QTest::qWaitFor([this] { return view(Front)->isInitialised() && view(Top)->isInitialised(); });
}

KMOpenGLWidget *ToolWindow::view(int index) const
{
    return (*this)->mainBox()->views()->widget(index);
}

QPointF ToolWindow::at(int viewIndex, const kvm::Vector3 &point) const
{
    const kvm::Vector3 window = view(viewIndex)->camera()->worldToWindow(point);
    return {double(window.x), double(window.y)};
}

QPointF ToolWindow::at(int viewIndex, int vertex) const
{
    return at(viewIndex, mesh->position(vertex));
}

void ToolWindow::filter(const KMEditFilter &filter)
{
    gSolution->setEditFilter(filter);
}

QList<int> ToolWindow::selectedVertices() const
{
    QList<int> indices;
    for (int i = 0; i < mesh->vertexCount(); ++i) {
        if (mesh->vertex(i) && mesh->vertex(i)->hasFlag(KMElementFlag::Selected))
            indices << i;
    }
    return indices;
}

int ToolWindow::selectedEdges() const
{
    return countSelected(mesh->edges());
}

int ToolWindow::selectedFaces() const
{
    return countSelected(mesh->faces());
}

QString ToolWindow::stepFailure(const QString &stepText, const std::function<void()> &gesture)
{
    return ::stepFailure([this] { return text(); }, stepText, gesture);
}

QString ToolWindow::text()
{
    KMPicker::clearHot();
    return dump.text();
}
