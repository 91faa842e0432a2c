#include "KMBatchInfo.h"

#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMShaderNode.h"
#include "core/KMTreeWidget.h"

#include <QJsonArray>

namespace {

QJsonArray nodes()
{
    QJsonArray list;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree())) {
        const KMContainerNode *node = KMTreeWidget::nodeOf(row);
        const KMContainerNode *parent = KMTreeWidget::nodeOf(row->parent());
        list << QJsonObject{{"type", nodeTypeName(node->type())},
                            {"name", node->name()},
                            {"parent", parent ? QJsonValue(parent->name()) : QJsonValue()}};
    }
    return list;
}

QJsonArray shaders()
{
    QJsonArray list;
    for (const KMShaderNode *shader : gProject->shaders())
        list << shader->name();
    return list;
}

QJsonArray textures()
{
    QJsonArray list;
    for (KMTextureNode *texture : gProject->textures()) {
        const bool isFile = texture->type() == KMNodeType::FileTexture;
        list << (isFile ? nodeAs<KMFileTextureNode>(texture)->path() : texture->name());
    }
    return list;
}

} // namespace

QJsonObject documentInfo(const QString &format)
{
    return {
        {"format", format},
        {"nodes", nodes()},
        {"meshes", QJsonArray()},
        {"bones", QJsonArray()},
        {"weights", QJsonObject{{"entries", 0}, {"sdef", 0}}},
        {"morphs", QJsonArray()},
        {"rigidBodies", QJsonArray()},
        {"joints", QJsonArray()},
        {"displayNodes", QJsonArray()},
        {"shaders", shaders()},
        {"textures", textures()},
        {"keys", 0},
    };
}
