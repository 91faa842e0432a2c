#include "support/DocumentText.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"

#include <cstring>

namespace {

QString bits(float value)
{
    quint32 number;
    std::memcpy(&number, &value, sizeof number);
    return QStringLiteral("%1 (0x%2)").arg(double(value)).arg(number, 8, 16, QLatin1Char('0'));
}

QString bits(const kvm::Vector3 &v)
{
    return bits(v.x) + QLatin1Char(' ') + bits(v.y) + QLatin1Char(' ') + bits(v.z);
}

QString color(const QColor &c)
{
    return c.name(QColor::HexArgb) + QString::number(c.spec());
}

QString body(KMContainerNode *node)
{
    switch (node->type()) {
    case KMNodeType::BoolContainer:
    case KMNodeType::IntContainer:
        return nodeAs<KMValueNodeContainer>(node)->value()->value().toString();
    case KMNodeType::FloatContainer:
        return bits(nodeAs<KMValueNodeContainer>(node)->value()->toFloat());
    default:
        break;
    }
    if (!isNull(node->type()))
        return {};
    const KMTransform t = nodeAs<KMNullNode>(node)->transform();
    return QStringLiteral("visible %1 locked %2 scale %3 turn %4 %5 at %6")
        .arg(node->isVisible())
        .arg(node->isLocked())
        .arg(bits(t.scale), bits(t.rotation.w), bits(kvm::Vector3(t.rotation.x, t.rotation.y, t.rotation.z)),
             bits(t.translation));
}

QString rowText(const QTreeWidgetItem *row)
{
    KMContainerNode *node = KMTreeWidget::nodeOf(row);
    int depth = 0;
    for (const QTreeWidgetItem *up = row->parent(); up; up = up->parent())
        ++depth;
    return QStringLiteral("%1%2 \"%3\" \"%4\" %5 expanded %6 tags %7")
        .arg(QString(depth, QLatin1Char(' ')), nodeTypeName(node->type()), node->name(), row->text(0), body(node))
        .arg(row->isExpanded())
        .arg(node->liveTagCount());
}

QString shaderText(KMShaderNode *shader)
{
    QString text = QStringLiteral("shader %1 \"%2\"").arg(shader->type(), 0, 16).arg(shader->name());
    if (shader->type() != KMNodeType::BasicShader)
        return text;
    const KMBasicShader &v = nodeAs<KMBasicShaderNode>(shader)->values();
    for (const QColor &c : {v.diffuse, v.specular, v.ambient, v.emissive, v.outlineColor})
        text += QLatin1Char(' ') + color(c);
    for (const int number : v.textures)
        text += QStringLiteral(" %1").arg(number);
    return text
        + QStringLiteral(" / %1 %2 %3 %4 %5 %6")
              .arg(v.shininess)
              .arg(v.multiMode)
              .arg(v.shaderType)
              .arg(v.outlineEnabled)
              .arg(v.doubleSided)
              .arg(bits(v.outlineSize));
}

QString textureText(KMTextureNode *texture)
{
    QString text = QStringLiteral("texture %1 \"%2\"").arg(texture->type(), 0, 16).arg(texture->name());
    if (texture->type() == KMNodeType::FileTexture)
        text += QStringLiteral(" path \"%1\"").arg(nodeAs<KMFileTextureNode>(texture)->path());
    if (texture->type() == KMNodeType::EmbeddedTexture) {
        const QImage image = texture->image().convertToFormat(QImage::Format_ARGB32);
        const auto *pixels = reinterpret_cast<const char *>(image.constBits());
        text += QStringLiteral(" %1x%2 %3")
                    .arg(image.width())
                    .arg(image.height())
                    .arg(qHash(QByteArray::fromRawData(pixels, int(image.sizeInBytes()))));
    }
    return text;
}

QString nameOf(KMNode *node)
{
    return node ? nodeAs<KMContainerNode>(node)->name() : QStringLiteral("none");
}

} // namespace

QStringList documentText()
{
    QStringList lines;
    lines << QStringLiteral("project \"%1\" \"%2\"").arg(gProject->name(), gProject->information());
    for (int i = 1; i <= 4; ++i)
        lines << QStringLiteral("text %1 \"%2\"").arg(i).arg(gProject->textInfo(i));
    lines << QStringLiteral("background %1 light %2").arg(color(gSolution->backgroundColor()), bits(gSolution->lightAngles()));
    QString flags;
    for (const bool flag : gSolution->viewFlags())
        flags += flag ? QLatin1Char('1') : QLatin1Char('0');
    lines << QStringLiteral("view %1 fog %2 filter %3 mask %4")
                 .arg(flags)
                 .arg(gSolution->fogDistance())
                 .arg(gSolution->isNodeFilterOn())
                 .arg(gSolution->displayMask());
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree()))
        lines << rowText(row);
    for (KMTextureNode *texture : gProject->textures())
        lines << textureText(texture);
    for (KMShaderNode *shader : gProject->shaders())
        lines << shaderText(shader);
    return lines << QStringLiteral("current \"%1\" \"%2\" \"%3\"")
                        .arg(nameOf(gSolution->currentNode()), nameOf(gSolution->currentShader()),
                             nameOf(gSolution->currentTexture()));
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
