#include "render/KMOpenGLShaderProgram.h"

#include "render/KMCameraNode.h"

#include <QColor>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QVector3D>

namespace {

constexpr const char *uniformNames[] = {"projMatrix", "mvMatrix",    "rotMatrix", "normalMatrix",
                                        "vertMatrix", "lightMatrix", "lightPos",  "cameraPos"};
static_assert(std::size(uniformNames) == KMOpenGLShaderProgram::UniformCount);

constexpr kvm::Vector3 startLight(30.0f, 100.0f, 70.0f);

QOpenGLFunctions *gl()
{
    return QOpenGLContext::currentContext()->functions();
}

} // namespace

bool KMOpenGLShaderProgram::link()
{
    if (!QOpenGLShaderProgram::link())
        return false;
    for (size_t i = 0; i < m_locations.size(); ++i)
        m_locations.at(i) = uniformLocation(uniformNames[i]);
    if (!bind())
        return false;
    setVector(LightPos, startLight);
    release();
    return true;
}

bool KMOpenGLShaderProgram::begin()
{
    return isLinked() && bind();
}

void KMOpenGLShaderProgram::setMatrix(Uniform uniform, const kvm::Matrix4 &matrix)
{
    gl()->glUniformMatrix4fv(m_locations.at(uniform), 1, GL_FALSE, matrix.data());
}

void KMOpenGLShaderProgram::setMatrix3(Uniform uniform, const float *matrix)
{
    gl()->glUniformMatrix3fv(m_locations.at(uniform), 1, GL_FALSE, matrix);
}

void KMOpenGLShaderProgram::setVector(Uniform uniform, const kvm::Vector3 &vector)
{
    gl()->glUniform3fv(m_locations.at(uniform), 1, vector.data());
}

void KMOpenGLShaderProgram::setCamera(const KMCameraNode &camera)
{
    setMatrix(ProjMatrix, camera.projection());
    setMatrix(MvMatrix, camera.modelView());
}

void KMOpenGLShaderProgram::setColor3(const char *name, const QColor &color)
{
    setUniformValue(name, QVector3D(float(color.redF()), float(color.greenF()), float(color.blueF())));
}
