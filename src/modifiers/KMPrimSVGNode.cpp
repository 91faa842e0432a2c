#include "modifiers/KMPrimSVGNode.h"

#include "core/KMNodeType.h"
#include "modifiers/KMPathExtruder.h"
#include "modifiers/KMSvgReader.h"

#include <QDebug>
#include <QFileInfo>

KMPrimSVGNode::KMPrimSVGNode()
{
    setType(KMNodeType::PrimSVG);
    setName(tr("SVG"));
    rebuild();
}

/// The file is read again only when it is another one or was changed, not at each step of a move.
const KMPathMesh &KMPrimSVGNode::areaOf(const QString &path)
{
    const QDateTime time = QFileInfo(path).lastModified();
    if (path == m_areaPath && time == m_areaTime)
        return m_area;
    m_areaPath = path;
    m_areaTime = time;
    m_area = {};
    if (path.isEmpty())
        return m_area;
    KMSvgReader reader;
    const bool isRead = reader.readFile(path);
    m_area = reader.area();
    const QStringList warnings = reader.warnings();
    for (const QString &warning : warnings)
        qDebug().noquote() << path << warning;
    const QString name = QFileInfo(path).fileName();
    if (!isRead)
        report(tr("%1 can't be read: %2").arg(path, reader.error()));
    else if (!warnings.isEmpty())
        report(tr("%1 doesn't show all of its drawing. %2").arg(name, warnings.first()));
    else if (m_area.isEmpty())
        report(tr("%1 holds no filled or stroked shape").arg(name));
    return m_area;
}

void KMPrimSVGNode::generate(const KMPrimSVG &parameters, KMPrimitiveBuilder &builder)
{
    KMPathExtruder::extrude(areaOf(parameters.path), 0.0f, 1, builder);
}
