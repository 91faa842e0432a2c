#include "shell/KMNodeClipboard.h"

#include "core/KMContainerNode.h"
#include "core/KMProject.h"
#include "core/KMUndoMacro.h"
#include "shell/KMNodeEdits.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

KMNodeClipboard::KMNodeClipboard(QObject *parent)
    : QObject(parent)
{
}

KMNodeClipboard::~KMNodeClipboard() = default;

void KMNodeClipboard::copy(const QList<KMContainerNode *> &nodes)
{
    m_templates.clear();
    for (const KMContainerNode *node : nodes) {
        auto copied = std::make_unique<KMNodeEdits::Template>(node);
        if (!copied->isEmpty())
            m_templates.push_back(std::move(copied));
    }
    if (m_templates.empty())
        return;
    auto *mark = new QMimeData;
    mark->setData(KMTreeWidget::NodeMimeType, {});
    QGuiApplication::clipboard()->setMimeData(mark); // takes the data
}

bool KMNodeClipboard::hasNodes() const
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return !m_templates.empty() && data && data->hasFormat(KMTreeWidget::NodeMimeType);
}

void KMNodeClipboard::paste()
{
    if (!hasNodes())
        return;
    QList<KMContainerNode *> pasted;
    const KMUndoMacro macro(tr("Paste"));
    for (const auto &copied : m_templates)
        pasted << copied->instantiate(nullptr);
    gProject->checkModifiers();
    gProject->tree()->setCurrentItem(pasted.last()->item());
    for (KMContainerNode *node : std::as_const(pasted))
        node->item()->setSelected(true);
}

void KMNodeClipboard::clear()
{
    m_templates.clear();
}
