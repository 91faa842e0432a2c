#include "shell/views/KMViewDrop.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMShaderCommands.h"
#include "core/KMSolution.h"
#include "core/KMTextureNode.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveCommands.h"
#include "modifiers/KMPrimitiveNode.h"
#include "render/KMCameraNode.h"
#include "render/KMPicker.h"

#include <QDebug>

QList<KMContainerNode *> KMViewDrop::nodesOf(const QMimeData *data)
{
    QList<KMContainerNode *> known;
    for (KMShaderNode *shader : gProject->shaders())
        known << shader;
    for (KMTextureNode *texture : gProject->textures())
        known << texture;
    return KMTreeWidget::nodesAmong(known, data);
}

bool KMViewDrop::apply(const KMCameraNode &camera, const QPointF &position, KMContainerNode *node)
{
    KMPickRequest request;
    request.wantFace = true;
    request.refreshWindowCoords = true;
    const bool isHit = KMPicker::pick(camera, position, request);
    KMPicker::clearHot();
    if (!isHit || !request.mesh) {
        qDebug("no hit");
        return false;
    }
    if (isShader(node->type()))
        assign(*request.mesh, request.face, gProject->shaders().indexOf(node));
    else if (isTexture(node->type()))
        assignTexture(*request.mesh, request.face, node);
    gSolution->refreshViews(31);
    return true;
}

/// A primitive has one shader for all of its faces.
void KMViewDrop::assign(KMMeshNode &mesh, int face, int shader)
{
    KMContainerNode *owner = mesh.ownerNode();
    if (owner && isPrimitive(owner->type())) {
        const KMUndoMacro macro(tr("Assign Shader"));
        gSolution->push(new primAssignShaderCommand(static_cast<KMPrimitiveNode *>(owner), shader));
    } else if (mesh.face(face)->hasFlag(KMElementFlag::Selected)) {
        KMMeshEdit::assignShader(mesh, shader);
    } else {
        KMMeshEdit::assignShader(mesh, face, shader);
    }
}

void KMViewDrop::assignTexture(KMMeshNode &mesh, int face, KMContainerNode *texture)
{
    const int index = gProject->textures().indexOf(texture);
    const int former = mesh.face(face)->shader;
    KMShaderNode *shader = gProject->shader(former);
    const KMUndoMacro macro(tr("Apply Texture"));
    if (former >= 0 && shader && shader->type() == KMNodeType::BasicShader) {
        auto *basic = static_cast<KMBasicShaderNode *>(shader);
        KMBasicShader values = basic->values();
        values.textures[KMBasicShader::Diffuse] = index;
        if (values != basic->values())
            gSolution->push(new editShaderNodeCommand(basic, values));
        return;
    }
    auto *made = new KMBasicShaderNode;
    made->setName(texture->name());
    KMBasicShader values = made->values();
    values.textures[KMBasicShader::Diffuse] = index;
    made->setValues(values);
    gProject->addToScene(made);
    const int added = gProject->shaders().indexOf(made);
    if (mesh.ownerNode())
        return assign(mesh, face, added);
    for (int f = 0; f < mesh.faceCount(); ++f) {
        if (mesh.face(f) && mesh.face(f)->shader == former)
            KMMeshEdit::editFaceShader(mesh, f, added);
    }
}
