#pragma once

#include "math/Matrix4.h"
#include "math/Vector3.h"

#include <QOpenGLShaderProgram>

#include <array>

class KMCameraNode;
class QColor;

/// One of the renderer's programs. It knows the places of the uniforms that almost every pass sets; the others go by
/// name. A uniform that the program doesn't have is ignored.
class KMOpenGLShaderProgram : public QOpenGLShaderProgram
{
    Q_OBJECT
public:
    enum Uniform {
        ProjMatrix,
        MvMatrix,
        RotMatrix,
        NormalMatrix,
        VertMatrix,
        LightMatrix,
        LightPos,
        CameraPos,
        UniformCount
    };

    bool link() override; ///< also looks the uniforms up and places the light
    bool begin();         ///< makes it the current one; false, and no further word, for a program that has no code

    void setMatrix(Uniform uniform, const kvm::Matrix4 &matrix); ///< uploaded as it lies in memory
    void setMatrix3(Uniform uniform, const float *matrix);       ///< nine floats
    void setVector(Uniform uniform, const kvm::Vector3 &vector);
    void setCamera(const KMCameraNode &camera);            ///< projection and model-view
    void setColor3(const char *name, const QColor &color); ///< for a uniform without alpha
    void setColor4(const char *name, const QColor &color) { setUniformValue(name, color); }

private:
    std::array<int, UniformCount> m_locations{};
};
