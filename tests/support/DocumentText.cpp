#include "support/DocumentText.h"

#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "formats/KMDWriter.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveNode.h"
#include "support/DocumentDump.h"
#include "support/MeshFileText.h"

#include <QBuffer>
#include <QRegularExpression>
#include <QTextStream>

namespace {

class FileDump : public DocumentDump
{
protected:
    void writeDetails(QTextStream &out, const KMContainerNode *node) override
    {
        if (node->type() == KMNodeType::Mesh)
            out << '\n' << meshFileText(*static_cast<const KMMeshNode *>(node));
        if (!isPrimitive(node->type()))
            return;
        const auto *primitive = static_cast<const KMPrimitiveNode *>(node);
        out << " shader " << primitive->shader() << '\n' << meshFileText(*primitive->mesh());
    }
};

QString nameOf(KMNode *node)
{
    return node ? nodeAs<KMContainerNode>(node)->name() : QStringLiteral("none");
}

} // namespace

QStringList documentText()
{
    FileDump dump;
    dump.withCurrent = true;
    // The boxes of a row say nothing that its node doesn't.
    QStringList lines =
        dump.text().remove(QRegularExpression(QStringLiteral(" boxes [0-9]+"))).split(QLatin1Char('\n'));
    const kvm::Vector3 light = gSolution->lightAngles();
    QString flags;
    for (const bool flag : gSolution->viewFlags())
        flags += flag ? QLatin1Char('1') : QLatin1Char('0');
    return lines << QStringLiteral("background %1 light %2 %3 %4")
                        .arg(gSolution->backgroundColor().name())
                        .arg(double(light.x))
                        .arg(double(light.y))
                        .arg(double(light.z))
                 << QStringLiteral("view %1 fog %2 filter %3 mask %4")
                        .arg(flags)
                        .arg(gSolution->fogDistance())
                        .arg(gSolution->isNodeFilterOn())
                        .arg(gSolution->displayMask())
                 << QStringLiteral("current \"%1\" \"%2\"")
                        .arg(nameOf(gSolution->currentShader()), nameOf(gSolution->currentTexture()));
}

QByteArray savedDocument(QStringList *warnings)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    KMDWriter writer(KMDOutput::Form::Present, {}, nullptr);
    const bool isWritten = writer.write(&buffer) && (warnings || writer.warnings().isEmpty());
    if (warnings)
        *warnings = writer.warnings();
    return isWritten ? buffer.data() : QByteArray();
}

bool isEmptyUntitledDocument()
{
    return gProject->tree()->topLevelItemCount() == 0 && gProject->allNodes().isEmpty() && gProject->shaders().isEmpty()
           && gProject->textures().isEmpty() && gSolution->fileName().isEmpty() && !gSolution->isModified()
           && !gSolution->currentNode() && !gSolution->isBusy() && gSolution->macroDepth() == 0;
}

QString documentFault()
{
    int treeNodes = 0;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree())) {
        const KMContainerNode *node = KMTreeWidget::nodeOf(row);
        ++treeNodes;
        if (!node || node->item() != row)
            return QStringLiteral("a row and its node don't know each other");
        if (!gProject->allNodes().contains(node) || node->isDeleted())
            return QStringLiteral("a row's node isn't in the project");
        if (row->text(KMTreeWidget::NameColumn) != node->name())
            return QStringLiteral("a row shows another name than its node has");
    }
    for (KMNode *node : gProject->allNodes())
        treeNodes -= isTreeNode(node->type()) ? 1 : 0;
    if (treeNodes != 0)
        return QStringLiteral("the project holds other nodes than the tree");
    if (gSolution->isBusy() || gSolution->macroDepth() != 0)
        return QStringLiteral("the session is still at work");
    return {};
}
