#include "core/KMBasicShaderNode.h"

#include "core/KMNodeType.h"

#include <tuple>

namespace {

auto fields(const KMBasicShader &s)
{
    return std::tie(s.diffuse, s.specular, s.ambient, s.emissive, s.shininess, s.textures, s.multiMode, s.shaderType,
                    s.outlineColor, s.outlineEnabled, s.outlineSize, s.doubleSided, s.sphereAdd);
}

} // namespace

bool KMBasicShader::operator==(const KMBasicShader &other) const
{
    return fields(*this) == fields(other);
}

KMBasicShaderNode::KMBasicShaderNode()
{
    setType(KMNodeType::BasicShader);
    setName(tr("Shader"));
}

KMBasicShaderNode::KMBasicShaderNode(const QString &name, const QColor &diffuse)
    : KMBasicShaderNode()
{
    setName(name);
    m_values.diffuse = diffuse;
}

KMContainerNode *KMBasicShaderNode::clone() const
{
    auto *copy = new KMBasicShaderNode;
    copy->setName(name());
    copy->setEnName(enName());
    copy->m_values = m_values;
    cloneTagsTo(copy);
    return copy;
}

QSet<int> KMBasicShaderNode::textureReferences() const
{
    QSet<int> used(m_values.textures.begin(), m_values.textures.end());
    used.remove(-1);
    return used;
}
