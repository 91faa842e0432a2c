#pragma once

#include <QCoreApplication>
#include <QList>

class KMCameraNode;
class KMContainerNode;
class KMMeshNode;
class QMimeData;
class QPointF;

/// A shader or a texture that is dropped on the model.
class KMViewDrop
{
    Q_DECLARE_TR_FUNCTIONS(KMViewDrop)
public:
    static QList<KMContainerNode *> nodesOf(const QMimeData *data); ///< shaders and textures of the document

    /// Gives it to the face at a window position of the view: a shader to that face, or to all selected ones of the
    /// mesh when it is among them; a texture to the shader that the face has, which for a built-in shader is a new one.
    /// One step of the history. False, and the log says so, when there is no face.
    static bool apply(const KMCameraNode &camera, const QPointF &position, KMContainerNode *node);

private:
    static void assign(KMMeshNode &mesh, int face, int shader);
    static void assignTexture(KMMeshNode &mesh, int face, KMContainerNode *texture);
};
