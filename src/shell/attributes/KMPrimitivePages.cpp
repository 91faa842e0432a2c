#include "shell/attributes/KMPrimitivePages.h"

#include "core/KMDpi.h"
#include "core/KMPrompt.h"
#include "shell/widgets/KMTextArea.h"
#include "shell/widgets/KMTextField.h"
#include "shell/widgets/KMVectorField.h"

#include <QFileInfo>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QToolButton>

KMPrimSpherePage::KMPrimSpherePage(KMPrimSphereNode *node)
    : KMParameterPage(node, tr("Sphere Primitive"))
{
    bindLength(tr("Radius"), QStringLiteral("radius"), &KMPrimSphere::radius, 0.0);
    bindCount(tr("Rings"), QStringLiteral("rings"), &KMPrimSphere::rings, 3);
    bindCount(tr("Sectors"), QStringLiteral("sectors"), &KMPrimSphere::sectors, 4);
    addShader();
}

KMPrimCubePage::KMPrimCubePage(KMPrimCubeNode *node)
    : KMParameterPage(node, tr("Cube Primitive"))
{
    auto *size = new KMVectorField;
    addRow(tr("Size"), size, QStringLiteral("size"));
    connect(size, &KMVectorField::committed, this, [this](const kvm::Vector3 &sides) {
        edit([&sides](KMPrimCube &p) { p = {sides.x, sides.y, sides.z}; });
    });
    onRefresh([this, size] {
        const KMPrimCube p = parameters();
        size->showVector({p.x, p.y, p.z});
    });
    addShader();
}

KMPrimCylinderPage::KMPrimCylinderPage(KMPrimCylinderNode *node)
    : KMParameterPage(node, tr("Cylinder Primitive"))
{
    bindLength(tr("Height"), QStringLiteral("height"), &KMPrimCylinder::height, -Longest);
    bindLength(tr("Radius"), QStringLiteral("radius"), &KMPrimCylinder::radius, 0.0);
    bindCount(tr("Rings"), QStringLiteral("rings"), &KMPrimCylinder::rings, 4);
    bindCount(tr("Sectors"), QStringLiteral("sectors"), &KMPrimCylinder::sectors, 4);
    addShader();
}

KMPrimTorusPage::KMPrimTorusPage(KMPrimTorusNode *node)
    : KMParameterPage(node, tr("Torus Primitive"))
{
    bindLength(tr("Outer Radius"), QStringLiteral("outerRadius"), &KMPrimTorus::outerRadius, 0.0);
    bindLength(tr("Radius"), QStringLiteral("radius"), &KMPrimTorus::radius, 0.0);
    bindCount(tr("Outer Rings"), QStringLiteral("outerRings"), &KMPrimTorus::outerRings, 3);
    bindCount(tr("Torus Rings"), QStringLiteral("torusRings"), &KMPrimTorus::torusRings, 3);
    addShader();
}

KMPrimPlanePage::KMPrimPlanePage(KMPrimPlaneNode *node)
    : KMParameterPage(node, tr("Plane Primitive"))
{
    bindLength(tr("Width"), QStringLiteral("width"), &KMPrimPlane::width, -Longest);
    bindLength(tr("Depth"), QStringLiteral("depth"), &KMPrimPlane::depth, -Longest);
    bindCount(tr("U AxisDiv"), QStringLiteral("uDivisions"), &KMPrimPlane::uDivisions, 1);
    bindCount(tr("V AxisDiv"), QStringLiteral("vDivisions"), &KMPrimPlane::vDivisions, 1);
    addShader();
}

KMPrim3DTextPage::KMPrim3DTextPage(KMPrim3DTextNode *node)
    : KMParameterPage(node, tr("3DTextNode"))
{
    createText();
    createFont();
    bindLength(tr("Depth"), QStringLiteral("depth"), &KMPrim3DText::depth, -Longest);
    bindCount(tr("Segment"), QStringLiteral("segment"), &KMPrim3DText::segment, 1);
    bindChoice(tr("Align"), QStringLiteral("align"), {tr("Left"), tr("Center"), tr("Right")}, &KMPrim3DText::align);
    addShader();
}

void KMPrim3DTextPage::createText()
{
    auto *text = new KMTextArea;
    text->setToolTip(tr("Ctrl+Enter hands the text over"));
    addRow(tr("Text"), text, QStringLiteral("text"));
    connect(text, &KMTextArea::committed, this, [this](const QString &written) {
        edit([&written](KMPrim3DText &p) { p.text = written.left(KMPrim3DText::MaxLength); });
    });
    onRefresh([this, text] { text->showText(parameters().text); });
}

void KMPrim3DTextPage::createFont()
{
    auto *family = new QFontComboBox;
    family->setEditable(false);
    family->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    family->setMinimumContentsLength(8);
    addRow(tr("Font"), family, QStringLiteral("font"));
    QCheckBox *bold = addCheck(tr("Bold"), QStringLiteral("bold"));
    QCheckBox *italic = addCheck(tr("Italic"), QStringLiteral("italic"));
    KMNumberField *size = addWhole(tr("Size"), QStringLiteral("size"), 1, KMPrim3DText::MaxPixelSize);
    connect(family, qOverload<int>(&QComboBox::activated), this, [this, family] {
        const QString name = family->currentFont().family();
        edit([&name](KMPrim3DText &p) { p.font.setFamily(name); });
    });
    connect(bold, &QCheckBox::clicked, this, [this](bool on) { edit([on](KMPrim3DText &p) { p.font.setBold(on); }); });
    connect(italic, &QCheckBox::clicked, this,
            [this](bool on) { edit([on](KMPrim3DText &p) { p.font.setItalic(on); }); });
    connect(size, &KMNumberField::committed, this,
            [this](double number) { edit([number](KMPrim3DText &p) { p.font.setPixelSize(int(number)); }); });
    onRefresh([=] {
        const QFont font = parameters().font;
        family->setCurrentFont(font);
        bold->setChecked(font.bold());
        italic->setChecked(font.italic());
        size->showNumber(font.pixelSize());
    });
}

KMPrimSVGPage::KMPrimSVGPage(KMPrimSVGNode *node)
    : KMParameterPage(node, tr("SVG"))
{
    auto *path = new KMTextField;
    path->setObjectName(QStringLiteral("path"));
    auto *choose = new QToolButton;
    choose->setText(QStringLiteral("..."));
    choose->setObjectName(QStringLiteral("choosePath"));
    choose->setToolTip(tr("Choose the file"));
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(dpiScaled(2));
    layout->addWidget(path, 1);
    layout->addWidget(choose);
    addRow(tr("File"), row, QStringLiteral("pathRow"));
    connect(path, &KMTextField::committed, this,
            [this](const QString &written) { edit([&written](KMPrimSVG &p) { p.path = written; }); });
    connect(choose, &QToolButton::clicked, this, &KMPrimSVGPage::chooseFile);
    onRefresh([this, path] { path->showText(parameters().path); });
    addShader();
}

void KMPrimSVGPage::chooseFile()
{
    KMFileRequest request;
    request.title = tr("Open SVG");
    request.directory = QFileInfo(parameters().path).absolutePath();
    request.filter = tr("SVG drawing (*.svg)");
    request.parent = window();
    const QString path = KMPrompt::current().openFile(request);
    if (!path.isEmpty())
        edit([&path](KMPrimSVG &p) { p.path = path; });
}
