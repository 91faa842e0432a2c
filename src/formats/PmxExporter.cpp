#include "formats/PmxExporter.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "formats/PmxContents.h"
#include "formats/PmxMesh.h"
#include "formats/PmxOutput.h"
#include "formats/PmxWriter.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagJoint.h"

#include <QApplication>
#include <QDebug>
#include <QFile>
#include <QSaveFile>
#include <QTextCodec>

namespace {

PmxModel merged(std::vector<PmxMesh> &meshes)
{
    PmxModel sum;
    for (PmxMesh &mesh : meshes) {
        mesh.offset = sum.vertices().size();
        sum.append(mesh.data);
    }
    return sum;
}

void takeTextures(PmxTextures &textures, const QVector<int> &materials)
{
    for (const int material : materials) {
        const KMShaderNode *shader = material < 0 ? nullptr : gProject->shader(material);
        if (!shader || shader->type() != KMNodeType::BasicShader)
            continue;
        const KMBasicShader &values = static_cast<const KMBasicShaderNode *>(shader)->values();
        for (const auto slot : {KMBasicShader::Diffuse, KMBasicShader::Sphere, KMBasicShader::Toon})
            textures.take(values.textures[slot]);
    }
}

template <class Tag>
QVector<PmxContents::OnBone<Tag>> tagsOnBones(const KMBoneContainer &root, int type)
{
    QVector<PmxContents::OnBone<Tag>> found;
    for (const KMBone *bone : root.bones()) {
        const QList<KMTagBase *> tags = bone->tags();
        for (const KMTagBase *tag : tags) {
            if (tag->type() == type && !tag->isDeleted())
                found.append({static_cast<const Tag *>(tag), bone});
        }
    }
    return found;
}

void takePhysics(PmxContents &contents)
{
    contents.bodies = tagsOnBones<KMTagRigidBody>(contents.root, KMNodeType::TagRigidBody);
    contents.joints = tagsOnBones<KMTagJoint>(contents.root, KMNodeType::TagJoint);
    for (int i = 0; i < contents.bodies.size(); ++i)
        contents.bodyPlaces.insert(contents.bodies.at(i).tag, i);
}

Pmx::IndexSizes sizesFor(const PmxContents &contents)
{
    Pmx::IndexSizes sizes;
    sizes.vertex = Pmx::unsignedIndexSize(contents.model.vertices().size());
    sizes.texture = Pmx::signedIndexSize(contents.textures.paths().size());
    sizes.material = Pmx::signedIndexSize(contents.materials.size());
    sizes.bone = Pmx::signedIndexSize(contents.root.bones().size());
    sizes.morph = Pmx::signedIndexSize(contents.morphs.count());
    sizes.rigid = Pmx::signedIndexSize(contents.bodies.size());
    return sizes;
}

QString decoded(const QByteArray &bytes)
{
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    const QTextCodec *older = QTextCodec::codecForName("Shift-JIS");
    return state.invalidChars == 0 || !older ? text : older->toUnicode(bytes);
}

} // namespace

QHash<QString, QString> PmxExporter::translations(const QString &path)
{
    QHash<QString, QString> translations;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return translations;
    const QStringList lines = decoded(file.readAll()).split(QLatin1Char('\n'));
    for (QString line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        const QStringList fields = line.split(QLatin1Char(','));
        if (fields.size() >= 2)
            translations.insert(fields.at(0), fields.at(1));
    }
    return translations;
}

bool PmxExporter::fail(const QString &sentence)
{
    m_error = sentence;
    return false;
}

bool PmxExporter::exportTo(const QString &path)
{
    m_error.clear();
    if (!root)
        return fail(tr("RootBone not found."));
    QSaveFile file(path);
    // Without a name the temporary file would still open, and the renaming fail.
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly)) {
        qDebug("file open error.");
        return fail(path.isEmpty() ? tr("There is no file name")
                                   : tr("The file can't be written: %1").arg(file.errorString()));
    }
    qDebug().noquote() << "Export PMX" << path;
    if (!write(file, path))
        file.cancelWriting();
    if (!file.commit())
        return fail(tr("The file can't be written: %1").arg(file.errorString()));
    QApplication::beep();
    return true;
}

bool PmxExporter::write(QIODevice &device, const QString &path) const
{
    std::vector<PmxMesh> meshes = PmxMesh::ofDocument(*this);
    PmxModel model = merged(meshes);
    const QVector<int> materials = model.materialsInUse();
    const QVector<int> triangles = model.groupFaces(materials);
    const PmxMorphs morphs(meshes);
    PmxTextures textures(path, *this);
    takeTextures(textures, materials);

    PmxContents contents{model, morphs, textures, *root, materials, triangles};
    contents.translations = translations(gSettings->filePath(QStringLiteral("translations/pmx.csv")));
    contents.edgeScale = edgeScale;
    contents.convertAxis = convertAxis;
    if (!skipPhysics)
        takePhysics(contents);
    contents.sizes = sizesFor(contents);

    PmxOutput out(device, scale, developmentFlip);
    PmxWriter(out, contents).write();
    return out.finish();
}
