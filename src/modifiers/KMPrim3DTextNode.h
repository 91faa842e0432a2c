#pragma once

#include "modifiers/KMParametricPrimitive.h"
#include "modifiers/KMPathMesh.h"

#include <QFont>
#include <QString>

struct KMPrim3DText
{
    enum Align { Left, Center, Right };
    static constexpr int MaxLength = 10000;
    static constexpr int MaxPixelSize = 2000;

    KMPrim3DText();

    QString text; ///< lines are parted by line feeds
    QFont font;   ///< its pixel size is the height in units; a font that isn't installed is replaced by a similar one
    float depth = 5.0f;
    int segment = 1;  ///< quads of a wall from the front to the back
    int align = Left; ///< the side of the lines that stands at the origin

    bool isInRange() const;
    qint64 faceCount() const;                          ///< an estimate: how many they are only the font tells
    bool hasSameArea(const KMPrim3DText &other) const; ///< the two differ in their depth at most
    bool operator==(const KMPrim3DText &other) const;
};

/// A text as a body: its front faces -Z, to the front view, its base line lies at the origin.
class KMPrim3DTextNode : public KMParametricPrimitive<KMPrim3DTextNode, KMPrim3DText>
{
    Q_OBJECT
public:
    KMPrim3DTextNode();

protected:
    bool accepts(const KMPrim3DText &parameters) override;
    void generate(const KMPrim3DText &parameters, KMPrimitiveBuilder &builder) override;

private:
    const KMPathMesh &areaOf(const KMPrim3DText &parameters);

    KMPrim3DText m_areaText; // what m_area was made of
    KMPathMesh m_area;
    bool m_areaFailed = false;
};
