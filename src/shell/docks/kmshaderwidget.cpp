#include "shell/docks/kmshaderwidget.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "core/KMTextureNode.h"
#include "render/KMOffscreenView.h"

#include <QDataStream>
#include <QPainter>

namespace {

QColor sum(const QColor &a, const QColor &b)
{
    return QColor(qMin(255, a.red() + b.red()), qMin(255, a.green() + b.green()), qMin(255, a.blue() + b.blue()),
                  a.alpha());
}

constexpr int samples = 4; // of a pixel: small balls have a lot of rim

/// What the textures of a material show now. A picture that is computed is always the same.
QVector<qint64> texturesOf(const KMBasicShader &values)
{
    QVector<qint64> keys;
    for (const int index : values.textures) {
        const KMTextureNode *texture = gProject->textures().value(index);
        const bool isComputed = texture && texture->type() == KMNodeType::ProcTexture;
        keys << index << (!texture || isComputed ? 0 : texture->image().cacheKey());
    }
    return keys;
}

/// Where there is no OpenGL. Light from the upper left: the ambient colour in the shade, the diffuse one added in the
/// light, and a spot of the specular one that gets smaller as the shininess grows.
QBrush litBall(const KMBasicShader &values, const QRectF &ball)
{
    const QColor shade = sum(sum({0, 0, 0, values.diffuse.alpha()}, values.ambient), values.emissive);
    const QColor lit = sum(sum(values.diffuse, values.ambient), values.emissive);
    QRadialGradient light(ball.center(), ball.width() * 0.75,
                          ball.topLeft() + QPointF(ball.width(), ball.height()) * 0.35);
    light.setColorAt(0.0, sum(lit, values.specular));
    light.setColorAt(qBound(0.05, 0.4 - values.shininess / 500.0, 0.4), lit);
    light.setColorAt(1.0, shade);
    return light;
}

} // namespace

kmshaderwidget::kmshaderwidget(QWidget *parent)
    : KMShelfDock(QStringLiteral("kmshaderwidget"), tr("Shader"), QStringLiteral("shader"), parent)
{
    connect(gProject, &KMProject::shadersChanged, this, &kmshaderwidget::refill);
    connect(gProject, &KMProject::texturesChanged, this, &kmshaderwidget::refill);
}

kmshaderwidget::~kmshaderwidget() = default;

QList<KMContainerNode *> kmshaderwidget::nodes() const
{
    QList<KMContainerNode *> nodes;
    for (KMShaderNode *shader : gProject->shaders())
        nodes << shader;
    return nodes;
}

QPixmap kmshaderwidget::picture(KMContainerNode *node, const QSize &size) const
{
    if (!m_view || m_view->size() != size)
        m_view = std::make_unique<KMOffscreenView>(size, samples);
    const QImage ballImage = m_view->paintMaterial(nodeAs<KMShaderNode>(node));
    if (!ballImage.isNull())
        return QPixmap::fromImage(ballImage);
    QPixmap result(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ball = QRectF(QPointF(0, 0), size).adjusted(2, 2, -2, -2);
    painter.setPen(Qt::NoPen);
    if (node->type() == KMNodeType::BasicShader)
        painter.setBrush(litBall(nodeAs<KMBasicShaderNode>(node)->values(), ball));
    else
        painter.setBrush(Qt::black);
    painter.drawEllipse(ball);
    return result;
}

QByteArray kmshaderwidget::pictureKey(KMContainerNode *node) const
{
    QByteArray key = QByteArray::number(node->type());
    if (node->type() != KMNodeType::BasicShader)
        return key;
    const KMBasicShader &values = nodeAs<KMBasicShaderNode>(node)->values();
    QDataStream out(&key, QIODevice::Append);
    out << values.diffuse << values.specular << values.ambient << values.emissive << values.shininess
        << values.shaderType << values.multiMode << values.sphereAdd << texturesOf(values);
    return key;
}

KMContainerNode *kmshaderwidget::current() const
{
    return nodeAs<KMContainerNode>(gSolution->currentShader());
}

void kmshaderwidget::setCurrent(KMContainerNode *node)
{
    gSolution->setCurrentShader(node);
}
