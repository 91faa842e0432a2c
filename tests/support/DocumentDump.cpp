#include "support/DocumentDump.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMBluePrint.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTreeWidget.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QTextStream>

namespace {

QString bytes(const QByteArray &data)
{
    return QString::fromLatin1(data.toHex());
}

template <class T>
QString bits(const T &value)
{
    return bytes(QByteArray(reinterpret_cast<const char *>(&value), int(sizeof value)));
}

QString shaderText(const KMBasicShader &s)
{
    QString text;
    for (const QColor &color : {s.diffuse, s.specular, s.ambient, s.emissive, s.outlineColor})
        text += QString::number(color.rgba64(), 16) + QLatin1Char(' ');
    for (const int number :
         {s.shininess, s.multiMode, s.shaderType, int(s.outlineEnabled), int(s.doubleSided), int(s.sphereAdd)})
        text += QString::number(number) + QLatin1Char(' ');
    for (const int texture : s.textures)
        text += QString::number(texture) + QLatin1Char(' ');
    return text + bits(s.outlineSize);
}

QString imageText(const QImage &image)
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << image;
    return bytes(QCryptographicHash::hash(data, QCryptographicHash::Md5));
}

} // namespace

int DocumentDump::number(const void *object)
{
    if (!object)
        return 0;
    if (!m_numbers.contains(object))
        m_numbers.insert(object, m_numbers.size() + 1);
    return m_numbers.value(object);
}

QString DocumentDump::text()
{
    QString result;
    QTextStream out(&result);
    out << "project " << gProject->name() << '|' << gProject->information();
    for (int i = 1; i <= 4; ++i)
        out << '|' << gProject->textInfo(i);
    out << '\n';
    const QTreeWidget *tree = gProject->tree();
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        writeRow(out, tree->topLevelItem(i), 0);
    for (const QList<KMNode *> &shelf : {gProject->shaders().nodes(), gProject->textures().nodes()}) {
        out << "shelf\n";
        for (KMNode *node : shelf)
            writeNode(out, nodeAs<KMContainerNode>(node));
    }
    if (withCurrent)
        out << "current " << number(gSolution->currentNode()) << '\n';
    out.flush();
    return result;
}

void DocumentDump::writeRow(QTextStream &out, const QTreeWidgetItem *row, int depth)
{
    const KMContainerNode *node = KMTreeWidget::nodeOf(row);
    out << QString(depth, QLatin1Char(' ')) << "row " << row->text(KMTreeWidget::NameColumn) << " boxes "
        << row->checkState(KMTreeWidget::VisibleColumn) << row->checkState(KMTreeWidget::LockColumn)
        << (row->isExpanded() ? " expanded" : "") << (row->isHidden() ? " hidden" : "")
        << (node->item() == row ? "" : " FOREIGN")
        << (row->data(KMTreeWidget::TagColumn, Qt::UserRole) == row->data(KMTreeWidget::NameColumn, Qt::UserRole)
                ? ""
                : " TORN")
        << '\n';
    writeNode(out, node);
    for (int i = 0; i < row->childCount(); ++i)
        writeRow(out, row->child(i), depth + 1);
}

void DocumentDump::writeNode(QTextStream &out, const KMContainerNode *node)
{
    out << "node " << number(node) << ' ' << node->type() << ' ' << node->name() << '|' << node->enName()
        << (node->isDeleted() ? " DELETED" : "") << (node->isVisible() ? "" : " invisible")
        << (node->isLocked() ? " locked" : "");
    writeValues(out, node);
    writeDetails(out, node);
    out << '\n';
    for (const KMTagBase *tag : node->tags()) {
        if (!tag->isDeleted())
            writeTag(out, tag);
    }
}

void DocumentDump::writeValues(QTextStream &out, const KMContainerNode *node)
{
    const int type = node->type();
    if (isNull(type))
        out << " at " << bits(static_cast<const KMNullNode *>(node)->transform());
    if (const auto *bluePrint = qobject_cast<const KMBluePrint *>(node))
        out << ' ' << bits(bluePrint->values());
    if (type == KMNodeType::BasicShader)
        out << ' ' << shaderText(static_cast<const KMBasicShaderNode *>(node)->values());
    if (type == KMNodeType::FileTexture)
        out << ' ' << static_cast<const KMFileTextureNode *>(node)->path();
    if (type == KMNodeType::EmbeddedTexture)
        out << ' ' << imageText(static_cast<const KMEmbeddedTextureNode *>(node)->image());
    if (type >= KMNodeType::BoolContainer && type <= KMNodeType::FloatContainer) {
        const KMVariantNode *value = static_cast<const KMValueNodeContainer *>(node)->value();
        out << " value " << value->value().typeName() << ' '
            << (type == KMNodeType::FloatContainer ? bits(value->toFloat()) : value->value().toString());
        for (const KMVariantNode *target : value->targets())
            out << " drives " << number(target);
    }
}

void DocumentDump::writeDetails(QTextStream &, const KMContainerNode *) {}

void DocumentDump::writeTag(QTextStream &out, const KMTagBase *tag)
{
    out << "  tag " << number(tag) << ' ' << tag->type() << ' ' << tag->name() << " of " << number(tag->owner())
        << '\n';
}
