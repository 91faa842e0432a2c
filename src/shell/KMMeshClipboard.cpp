#include "shell/KMMeshClipboard.h"

#include "core/KMCommand.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "mesh/KMCopyBuffer.h"
#include "mesh/KMMeshNode.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMimeData>

namespace {

void showMessage(const char *text)
{
    gSolution->showMessage(QCoreApplication::translate("KMMeshClipboard", text), KMCommand::MessageLevel);
}

} // namespace

bool KMMeshClipboard::copyFaces()
{
    const QByteArray buffer = KMCopyBuffer::copySelection();
    if (buffer.isEmpty())
        return false;
    auto *data = new QMimeData;
    data->setData(KMCopyBuffer::MimeType, buffer);
    QGuiApplication::clipboard()->setMimeData(data); // takes the data
    return true;
}

bool KMMeshClipboard::hasFaces()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasFormat(KMCopyBuffer::MimeType);
}

void KMMeshClipboard::pasteFaces(KMMeshPaste::Kind kind)
{
    KMNode *node = gSolution->currentNode();
    if (!hasFaces())
        return showMessage(QT_TRANSLATE_NOOP("KMMeshClipboard", "Copy faces first"));
    if (!node || node->type() != KMNodeType::Mesh)
        return showMessage(QT_TRANSLATE_NOOP("KMMeshClipboard", "Select a mesh first"));
    auto &mesh = *nodeAs<KMMeshNode>(node);
    const QByteArray buffer = QGuiApplication::clipboard()->mimeData()->data(KMCopyBuffer::MimeType);
    if (mesh.isLocked())
        showMessage(QT_TRANSLATE_NOOP("KMMeshClipboard", "The mesh is locked"));
    else if (!KMMeshPaste::paste(mesh, buffer, kind))
        showMessage(QT_TRANSLATE_NOOP("KMMeshClipboard", "Nothing to paste"));
}
