#include "formats/KMDWriter.h"

#include "core/KMContainerNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "formats/KMDDisplayBlock.h"
#include "formats/KMDFormat.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDShelfBlocks.h"
#include "formats/KMDViewBlocks.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

#include <QRectF>
#include <QTransform>

namespace {

constexpr int textInfoCount = 4;
constexpr int reservedTexts = 4;

bool hasRecord(const QTreeWidgetItem *row)
{
    return KMDNodeBodies::find(KMTreeWidget::nodeOf(row)->type());
}

/// The row under which a reader finds this one: the nearest above it that is in the file.
const QTreeWidgetItem *parentInFile(const QTreeWidgetItem *row)
{
    const QTreeWidgetItem *parent = row->parent();
    while (parent && !hasRecord(parent))
        parent = parent->parent();
    return parent;
}

} // namespace

KMDWriter::KMDWriter(KMDOutput::Form form, const QByteArray &thumbnail, const KMDViewParts *parts,
                     const QString &folder)
    : m_form(form)
    , m_thumbnail(thumbnail)
    , m_parts(parts)
    , m_folder(folder)
{
}

bool KMDWriter::write(QIODevice *device)
{
    KMDOutput out(device, m_form);
    writeHeader(out);
    writeProject(out);
    writeDisplay(out);
    KMDShelfBlocks::writeTextures(out, m_folder);
    KMDShelfBlocks::writeShaders(out);
    writeNodes(out);
    KMDDisplayBlock::write(out);
    out.writeI32(0);
    writeCurrent(out);
    writeSchematic(out);
    m_warnings = out.warnings();
    return out.ok();
}

void KMDWriter::writeHeader(KMDOutput &out)
{
    out.writeString(QStringLiteral("kmd"));
    out.writeF64(double(out.isCompatibility() ? KMD::CompatibilityVersion : KMD::Version));
}

void KMDWriter::writeProject(KMDOutput &out)
{
    out.writeString(gProject->name());
    out.writeString(gProject->information());
    out.writeImage(m_thumbnail);
    out.stream() << gSolution->backgroundColor();
    out.writeVector3(gSolution->lightAngles());
    for (int number = 1; number <= textInfoCount; ++number)
        out.writeString(gProject->textInfo(number));
}

void KMDWriter::writeDisplay(KMDOutput &out)
{
    KMDViewBlocks::writeSwitches(out);
    // Release 1 reads them too, although the number of its form says that they aren't there.
    for (int i = 0; i < reservedTexts; ++i)
        out.writeString(QStringLiteral("null"));
    KMDViewBlocks::writeCameras(out, m_parts);
    KMDViewBlocks::writeViews(out, m_parts);
}

void KMDWriter::writeNodes(KMDOutput &out)
{
    QList<QTreeWidgetItem *> rows;
    for (QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree())) {
        if (hasRecord(row))
            rows << row;
        else
            out.warn(tr("The node %1 has no place in the file").arg(KMTreeWidget::nodeOf(row)->name()));
    }
    out.writeI32(rows.size());
    for (const QTreeWidgetItem *row : std::as_const(rows)) {
        const KMContainerNode *node = KMTreeWidget::nodeOf(row);
        writeNodeHead(out, row);
        KMDNodeBodies::find(node->type())->write(out, node);
    }
}

void KMDWriter::writeNodeHead(KMDOutput &out, const QTreeWidgetItem *row)
{
    const KMContainerNode *node = KMTreeWidget::nodeOf(row);
    out.writeI32(node->type());
    out.writeId(node);
    out.writeId(row);
    out.writeId(parentInFile(row));
    out.writeBool(row->isExpanded());
}

void KMDWriter::writeCurrent(KMDOutput &out)
{
    out.writeId(gSolution->currentNode());
    out.writeId(gSolution->currentShader());
    out.writeId(gSolution->currentTexture());
    KMNode *bone = gSolution->currentBone();
    out.writeId(bone);
    out.writeId(bone ? nodeAs<KMBone>(bone)->container() : nullptr);
}

void KMDWriter::writeSchematic(KMDOutput &out)
{
    out.stream() << QTransform() << QRectF() << QRectF(); // where nothing was arranged yet
}
