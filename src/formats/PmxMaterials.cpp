#include "formats/PmxMaterials.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMProject.h"
#include "formats/PmxFile.h"
#include "formats/PmxLayout.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace {

QColor colorOf(const kvm::Vector3 &v, float alpha = 1.0f)
{
    const auto bounded = [](float channel) { return double(std::clamp(channel, 0.0f, 1.0f)); };
    return QColor::fromRgbF(bounded(v.x), bounded(v.y), bounded(v.z), bounded(alpha));
}

QColor colorOf(const kvm::Vector4 &v)
{
    return colorOf({v.x, v.y, v.z}, v.w);
}

int shininessOf(float power)
{
    constexpr float least = 2.0f;
    constexpr float most = 1000.0f;
    return power < least ? 1 : int(std::min(power, most));
}

/// Models come from a system that doesn't tell upper from lower case: where a path isn't found as it is written, one
/// counts that differs in nothing else.
class PictureFinder
{
public:
    explicit PictureFinder(const QDir &folder)
        : m_folder(folder)
    {
    }

    QString pathOf(const QString &written)
    {
        const QString path = QDir::cleanPath(m_folder.filePath(written));
        if (written.isEmpty() || QFileInfo::exists(path))
            return path;
        QStringList places{m_folder.path()}; // more than one below folders that differ in nothing but case
        const QStringList parts = QDir::cleanPath(written).split(QLatin1Char('/'), Qt::SkipEmptyParts);
        for (const QString &part : parts) {
            QStringList next;
            for (const QString &place : std::as_const(places))
                next += matches(place, part);
            if (next.isEmpty())
                return path;
            places = next;
        }
        return QDir::cleanPath(places.first());
    }

private:
    /// The paths of what bears the name, the one that is as written first.
    QStringList matches(const QString &place, const QString &name)
    {
        const QDir folder(place);
        auto known = m_entries.find(place);
        if (known == m_entries.end()) // listed once: models miss many pictures in folders with many files
            known = m_entries.insert(place, folder.entryList(QDir::AllEntries | QDir::NoDot, QDir::Name));
        QStringList paths;
        for (const QString &entry : std::as_const(*known)) {
            if (entry == name)
                paths.prepend(folder.filePath(entry));
            else if (entry.compare(name, Qt::CaseInsensitive) == 0)
                paths << folder.filePath(entry);
        }
        return paths;
    }

    QDir m_folder;
    QHash<QString, QStringList> m_entries; // by the path of their folder
};

void pushTextures(const PmxFile &file, const QDir &folder)
{
    PictureFinder finder(folder);
    for (QString written : file.textures) {
        written.replace(QLatin1Char('\\'), QLatin1Char('/'));
        // Equal paths make nodes of their own: materials count on the number of the file.
        gProject->addToScene(new KMFileTextureNode(written.isEmpty() ? QString() : finder.pathOf(written)),
                             KMProject::Naming::Keep);
    }
}

KMBasicShader valuesOf(const PmxFile::Material &material, int firstTexture)
{
    const auto inDocument = [firstTexture](int texture) { return texture < 0 ? -1 : firstTexture + texture; };
    KMBasicShader values;
    values.diffuse = colorOf(material.diffuse);
    values.specular = colorOf(material.specular);
    values.ambient = colorOf(material.ambient);
    values.shininess = shininessOf(material.power);
    values.textures[KMBasicShader::Diffuse] = inDocument(material.texture);
    values.textures[KMBasicShader::Sphere] = inDocument(material.sphere);
    values.textures[KMBasicShader::Toon] = inDocument(material.toon);
    values.sphereAdd = material.sphereMode == Pmx::SphereMultiplied;
    values.doubleSided = material.flags & Pmx::MaterialDoubleSided;
    values.outlineEnabled = material.flags & Pmx::MaterialEdge;
    values.outlineColor = colorOf(material.edgeColor);
    values.outlineSize = material.edgeSize;
    return values;
}

} // namespace

void PmxMaterials::push(const PmxFile &file, const QDir &folder)
{
    const int firstTexture = gProject->textures().size();
    pushTextures(file, folder);
    for (const PmxFile::Material &material : file.materials) {
        auto *shader = new KMBasicShaderNode;
        shader->setName(material.name.local);
        shader->setEnName(material.name.universal);
        shader->setValues(valuesOf(material, firstTexture));
        gProject->addToScene(shader, KMProject::Naming::Keep);
    }
}
