#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QStringList>
#include <QVector>

#include <functional>

/// A mesh of a line polygon 0-1 and a quad 0-1-2-3 in the units of the file; edge 1-2 has the weight 0.75.
struct KmdMesh
{
    struct Face
    {
        int count;
        QVector<int> corners;
        int shader;
    };

    QVector<double> positions{0, 0, 0, 1, 0, 0, 1, 0, 1, 0, 0, 1};
    QVector<Face> faces{{2, {0, 1}, -1}, {4, {0, 1, 2, 3}, 0}};
    QVector<int> edges{0, 1, 1, 2, 2, 3, 0, 3}; ///< pairs
    int vertexCount = 4;                        ///< as the file tells it
    int faceCount = 2;
    int edgeCount = 4;
};

/// A native file written field by field, of any version and with any fault.
///
/// It holds a bool, an int below a null, and a float; a file texture, an embedded one and two materials where
/// the version has them; one camera and one view.
class KmdBytes
{
public:
    explicit KmdBytes(double version);

    QByteArray bytes();
    QVector<int> sectionStarts() const { return m_starts; } ///< offsets in bytes(), after it was asked for

    // What a test may change

    double version;
    QString magic = QStringLiteral("kmd");
    float translation = 2.5f; ///< x of the null
    double rotationW = 1.0;
    bool hasMesh = false; ///< a fifth node, "mesh", below the null; see KmdMesh
    KmdMesh mesh;
    int vertexTexture = 0;                 ///< diffuse texture of the first material
    QVector<quint64> parents{0, 0, 22, 0}; ///< parent rows of bool, null, int, float, whose rows are 21 to 24
    quint32 floatType = 0x600003;
    std::function<void(QDataStream &)> schematic;
    std::function<void(QDataStream &, bool)> tags; ///< of each node, with their count; told whether it is a mesh
    int moreNodeCount = 0;
    std::function<void(QDataStream &)> moreNodes; ///< stand behind the others
    bool zeroBeforePicture;                       ///< of the embedded texture, as from 4.2 on
    bool hasReserved;                             ///< four texts "null", as from 4.4 on

private:
    void section();
    void header();
    void project();
    void display();
    void textures();
    void shaders();
    void nodes();
    void head(int type, int index);
    void meshBody();
    void writeTags(bool ofMesh = false);
    void transform(const QString &name);
    void tail();
    void f32(double value);
    bool since(double first) const { return float(version) >= float(first); }

    QByteArray m_bytes;
    QScopedPointer<QDataStream> m_out;
    QVector<int> m_starts;
};
