#pragma once

#include "render/KMOpenGLShaderProgram.h"

#include <QString>

#include <array>
#include <memory>

/// The fifteen programs that everything is drawn with.
class KMShaderPrograms
{
    Q_DISABLE_COPY(KMShaderPrograms)
public:
    enum Id {
        Point,
        Line,
        LineAlpha,
        Face,
        FaceT,
        Face2D,
        Face2DRev,
        ConstFace,
        UVT,
        HUD,
        Blueprint,
        Real,
        RealPoint,
        RealLine,
        Outline,
        Count
    };

    /// The texts of one program, by the names of their resources, and where it takes its attributes.
    struct Row
    {
        Id id;
        const char *name;
        const char *vertexText;
        const char *fragmentText;
        std::array<const char *, 5> attributes; ///< by location; null from the last one on
    };
    static const std::array<Row, Count> &rows();

    KMShaderPrograms() = default;

    /// Compiles and links all of them in the current context. One that fails is told to the log and draws nothing;
    /// false when there was such a one.
    bool load(const QString &folder = defaultFolder());
    static QString defaultFolder(); ///< of the compiled-in texts

    void clear(); ///< a context must be current

    KMOpenGLShaderProgram &operator[](Id id) const { return *m_programs.at(id); } ///< only after load()

private:
    static bool build(KMOpenGLShaderProgram &program, const Row &row, const QString &folder);

    std::array<std::unique_ptr<KMOpenGLShaderProgram>, Count> m_programs;
};
