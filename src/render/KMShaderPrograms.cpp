#include "render/KMShaderPrograms.h"

#include <QDebug>

const std::array<KMShaderPrograms::Row, KMShaderPrograms::Count> &KMShaderPrograms::rows()
{
    static const std::array<Row, Count> rows = {{
        {Point, "point", "vertex_point", "fragment_point", {"vertex", "color"}},
        {Line, "line", "vertex_line", "fragment_line", {"vertex", "color", "status"}},
        {LineAlpha, "lineAlpha", "vertex_line_alpha", "fragment_line", {"vertex", "color", "status"}},
        {Face, "face", "vertex_face", "fragment_face", {"vertex", "normal", "color"}},
        {FaceT, "faceT", "vertex_faceT", "fragment_faceT", {"vertex", "normal", "color", "texcoord"}},
        {Face2D, "2dface", "vertex_2dface", "fragment_2dface", {"vertex", "color"}},
        {Face2DRev, "2dfaceRev", "vertex_2dface", "fragment_2dface_rev", {"vertex", "color"}},
        {ConstFace, "constface", "vertex_face", "fragment_constface", {"vertex", "normal", "color"}},
        {UVT, "UVT", "vertex_UVT", "fragment_UVT", {"vertex", "color", "texcoord"}},
        {HUD, "HUD", "vertex_HUD", "fragment_HUD", {"vertex", "color", "texcoord"}},
        {Blueprint, "blueprint", "vertex_blueprint", "fragment_blueprint", {"vertex", "color", "texcoord"}},
        {Real, "real", "vertex_real", "fragment_real", {"vertex", "normal", "color", "texcoord", "status"}},
        {RealPoint, "realpoint", "vertex_realpoint", "fragment_realpoint", {"vertex", "color", "status"}},
        {RealLine, "realline", "vertex_realline", "fragment_realline", {"vertex", "color", "status"}},
        {Outline, "outline", "vertex_outline", "fragment_outline", {"vertex", "normal"}},
    }};
    return rows;
}

QString KMShaderPrograms::defaultFolder()
{
    return QStringLiteral(":/glsl/Resources/");
}

bool KMShaderPrograms::load(const QString &folder)
{
    bool complete = true;
    for (const Row &row : rows()) {
        auto &program = m_programs.at(row.id);
        program = std::make_unique<KMOpenGLShaderProgram>();
        if (!build(*program, row, folder)) {
            qDebug() << "failed load glsl." << row.name << program->log();
            complete = false;
        }
    }
    return complete;
}

bool KMShaderPrograms::build(KMOpenGLShaderProgram &program, const Row &row, const QString &folder)
{
    // One text alone may link, and then draws by the driver's own rules.
    bool complete = true;
    if (!program.addShaderFromSourceFile(QOpenGLShader::Vertex, folder + QLatin1String(row.vertexText))) {
        qDebug() << "failed load vertex shader" << row.vertexText;
        complete = false;
    }
    if (!program.addShaderFromSourceFile(QOpenGLShader::Fragment, folder + QLatin1String(row.fragmentText))) {
        qDebug() << "failed load fragment shader" << row.fragmentText;
        complete = false;
    }
    for (size_t location = 0; location < row.attributes.size() && row.attributes.at(location); ++location)
        program.bindAttributeLocation(row.attributes.at(location), int(location));
    return complete && program.link();
}

void KMShaderPrograms::clear()
{
    for (auto &program : m_programs)
        program.reset();
}
