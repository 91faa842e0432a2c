#include "shell/attributes/KMBasicShaderPage.h"

#include "core/KMProject.h"
#include "core/KMShaderCommands.h"
#include "core/KMSolution.h"
#include "core/KMTextureNode.h"
#include "shell/widgets/KMColorField.h"
#include "shell/widgets/KMNumberField.h"

#include <QCheckBox>
#include <QComboBox>

namespace {

/// "None" and all textures; the entry of a texture is its index plus one.
void fillTextures(QComboBox *box)
{
    QStringList names{KMBasicShaderPage::tr("None")};
    for (const KMTextureNode *texture : gProject->textures())
        names << texture->name();
    for (int i = 0; i < qMax(names.size(), box->count()); ++i) {
        if (i >= names.size())
            box->removeItem(names.size());
        else if (i >= box->count())
            box->addItem(names[i]);
        else
            box->setItemText(i, names[i]);
    }
}

} // namespace

KMBasicShaderPage::KMBasicShaderPage(KMBasicShaderNode *shader)
    : KMNodePage(shader)
    , m_shader(shader)
{
    createColors();
    createTextures();
    createOutline();
}

void KMBasicShaderPage::edit(const std::function<void(KMBasicShader &)> &change)
{
    KMBasicShader values = m_shader->values();
    change(values);
    if (values != m_shader->values())
        gSolution->push(new editShaderNodeCommand(m_shader, values));
}

void KMBasicShaderPage::createColors()
{
    bindChoice(tr("Shading"), QStringLiteral("shaderType"), {tr("Lambert"), tr("Unlit"), tr("Half Lambert")},
               &KMBasicShader::shaderType);
    bindColor(tr("Diffuse"), QStringLiteral("diffuse"), &KMBasicShader::diffuse);
    bindColor(tr("Specular"), QStringLiteral("specular"), &KMBasicShader::specular);
    bindColor(tr("Ambient"), QStringLiteral("ambient"), &KMBasicShader::ambient);
    bindColor(tr("Emissive"), QStringLiteral("emissive"), &KMBasicShader::emissive);
    KMNumberField *shininess = addWhole(tr("Shininess"), QStringLiteral("shininess"), 1, 1000);
    connect(shininess, &KMNumberField::committed, this,
            [this](double number) { edit([number](KMBasicShader &values) { values.shininess = int(number); }); });
    m_showers << [shininess](const KMBasicShader &values) { shininess->showNumber(values.shininess); };
    bindCheck(tr("Double sided"), QStringLiteral("doubleSided"), &KMBasicShader::doubleSided);
}

void KMBasicShaderPage::createTextures()
{
    addHeading(tr("Textures"));
    bindTexture(tr("Diffuse"), QStringLiteral("diffuseTexture"), KMBasicShader::Diffuse);
    bindTexture(tr("Second"), QStringLiteral("multiTexture"), KMBasicShader::Multi);
    bindChoice(tr("Mixing"), QStringLiteral("multiMode"), {tr("Mix"), tr("Add"), tr("Multiply")},
               &KMBasicShader::multiMode);
    bindTexture(tr("Normal"), QStringLiteral("normalTexture"), KMBasicShader::Normal);
    bindTexture(tr("Toon"), QStringLiteral("toonTexture"), KMBasicShader::Toon);
    bindTexture(tr("Sphere"), QStringLiteral("sphereTexture"), KMBasicShader::Sphere);
    bindCheck(tr("Multiply sphere map"), QStringLiteral("sphereAdd"), &KMBasicShader::sphereAdd);
}

void KMBasicShaderPage::createOutline()
{
    addHeading(tr("Outline"));
    bindCheck(tr("Draw outline"), QStringLiteral("outlineEnabled"), &KMBasicShader::outlineEnabled);
    bindColor(tr("Color"), QStringLiteral("outlineColor"), &KMBasicShader::outlineColor);
    KMNumberField *size = addNumber(tr("Size"), QStringLiteral("outlineSize"));
    size->setMinimum(0.0);
    size->setSingleStep(0.1);
    connect(size, &KMNumberField::committed, this,
            [this](double number) { edit([number](KMBasicShader &values) { values.outlineSize = float(number); }); });
    m_showers << [size](const KMBasicShader &values) { size->showNumber(double(values.outlineSize)); };
}

void KMBasicShaderPage::bindColor(const QString &label, const QString &key, QColor KMBasicShader::*member)
{
    KMColorField *field = addColor(label, key);
    connect(field, &KMColorField::committed, this,
            [this, member](const QColor &color) { edit([&](KMBasicShader &values) { values.*member = color; }); });
    m_showers << [field, member](const KMBasicShader &values) { field->showColor(values.*member); };
}

void KMBasicShaderPage::bindCheck(const QString &label, const QString &key, bool KMBasicShader::*member)
{
    QCheckBox *box = addCheck(label, key);
    connect(box, &QCheckBox::clicked, this,
            [this, member](bool on) { edit([&](KMBasicShader &values) { values.*member = on; }); });
    m_showers << [box, member](const KMBasicShader &values) { box->setChecked(values.*member); };
}

void KMBasicShaderPage::bindChoice(const QString &label, const QString &key, const QStringList &choices,
                                   int KMBasicShader::*member)
{
    QComboBox *box = addChoice(label, key, choices);
    connect(box, qOverload<int>(&QComboBox::activated), this,
            [this, member](int index) { edit([&](KMBasicShader &values) { values.*member = index; }); });
    m_showers << [box, member](const KMBasicShader &values) { box->setCurrentIndex(values.*member); };
}

void KMBasicShaderPage::bindTexture(const QString &label, const QString &key, KMBasicShader::TextureSlot slot)
{
    QComboBox *box = addChoice(label, key);
    connect(box, qOverload<int>(&QComboBox::activated), this,
            [this, slot](int index) { edit([&](KMBasicShader &values) { values.textures[slot] = index - 1; }); });
    m_showers << [box, slot](const KMBasicShader &values) {
        fillTextures(box);
        box->setCurrentIndex(values.textures[slot] + 1);
    };
}

void KMBasicShaderPage::refresh()
{
    KMNodePage::refresh();
    for (const auto &show : std::as_const(m_showers))
        show(m_shader->values());
}
