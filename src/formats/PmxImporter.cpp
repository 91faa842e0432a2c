#include "formats/PmxImporter.h"

#include "core/KMCommand.h"
#include "core/KMInputFile.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSessionViews.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "formats/KMLoadingGuard.h"
#include "formats/PmxLayout.h"
#include "formats/PmxMaterials.h"
#include "formats/PmxMeshBuilder.h"
#include "formats/PmxReader.h"
#include "formats/PmxRigBuilder.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMDisplayNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMMorph.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

bool isMeshName(const QString &name)
{
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        if (mesh->name() == name)
            return true;
    }
    return false;
}

/// Ends a step in which nodes came in: a redo brings them in anew, and leaves as little selected as the import did.
class selectNothingCommand : public KMUndoCommand
{
public:
    selectNothingCommand()
        : KMUndoCommand(PmxImporter::tr("ImportPMX"), nullptr)
    {
    }

protected:
    void apply(Direction direction) override
    {
        if (direction == Direction::Undo)
            return;
        KMLoadingGuard::selectNothing();
        gSolution->setCurrentNode(nullptr);
    }
};

} // namespace

bool PmxImporter::load(const QString &path)
{
    m_warnings.clear();
    PmxFile file;
    if (!read(path, file))
        return false;
    build(path, file);
    if (!m_warnings.isEmpty())
        KMReadReport::show(path, m_warnings, m_moreWarnings);
    return true;
}

bool PmxImporter::read(const QString &path, PmxFile &file)
{
    QFile device(path);
    const QString fault = KMInputFile::open(device);
    if (!fault.isEmpty()) {
        qDebug("file open error.");
        gSolution->showMessage(fault, KMCommand::MessageLevel);
        return false;
    }
    PmxReader reader(device.readAll());
    bool isRead = reader.readHeader();
    if (isRead) {
        showModel(reader.file());
        isRead = reader.readContents(importNormals);
    }
    m_warnings = reader.warnings();
    m_moreWarnings = reader.moreWarnings();
    if (!isRead)
        KMReadReport::show(path, {tr("The file can't be read to its end: %1").arg(reader.error())});
    file = reader.takeFile();
    return isRead;
}

/// What the maker of the model has to say to those who use it; many say nothing.
void PmxImporter::showModel(const PmxFile &file) const
{
    if (file.comment.local.trimmed().isEmpty())
        return;
    KMMessage message;
    message.title = file.modelName.local;
    message.text = file.comment.local;
    KMPrompt::current().message(message);
}

void PmxImporter::build(const QString &path, PmxFile &file)
{
    const KMLoadingGuard guard;
    const PmxScale scaled(scale);
    {
        const KMUndoMacro macro(tr("ImportPMX"));
        const int firstShader = gProject->shaders().size();
        pushTexts(file);
        PmxMaterials::push(file, QFileInfo(path).absoluteDir());
        PmxRigBuilder rig(file, scaled);
        rig.push();
        m_warnings = rig.warnings() + m_warnings; // ahead of numbers that aren't finite, which come in floods
        PmxMeshBuilder mesh(file, scaled, rig.bones(), firstShader);
        pushMesh(file, mesh.build(), mesh);
        pushFrames(file, rig, mesh);
        gSolution->push(new selectNothingCommand);
    }
    if (scaled.lost() > 0)
        m_warnings.prepend(tr("%1 places or numbers left all bounds on their way in, and became 0").arg(scaled.lost()));
    if (gSolution->views())
        gSolution->views()->resetCamera();
}

void PmxImporter::pushTexts(const PmxFile &file) const
{
    const QString texts[] = {file.modelName.local, file.comment.local, file.modelName.universal,
                             file.comment.universal}; // by the slot of the project
    for (int slot = 0; slot < int(std::size(texts)); ++slot)
        gSolution->push(new renameKMPNodeCommand(slot, texts[slot]));
}

void PmxImporter::pushMesh(const PmxFile &file, KMMeshNode *mesh, const PmxMeshBuilder &builder) const
{
    const QString &name = file.modelName.local;
    const bool isNamed = !name.isEmpty() && !isMeshName(name);
    if (!name.isEmpty())
        mesh->setName(name);
    gProject->addToScene(mesh, isNamed ? KMProject::Naming::Keep : KMProject::Naming::Unique);
    builder.pushSdefFlags();

    auto *deform = new KMModBoneDeformNode;
    gProject->addRaw(deform);
    gSolution->push(new insertNodeCommand(deform, mesh, -1, KMRowFocus::Keep));
    gProject->checkModifiers();
}

/// An item whose bone or morph isn't there, or is a morph of another kind, is left out.
void PmxImporter::pushFrames(const PmxFile &file, const PmxRigBuilder &rig, const PmxMeshBuilder &mesh) const
{
    for (const PmxFile::Frame &frame : file.frames) {
        KMDisplayNode::Items items;
        for (const PmxFile::FrameItem &item : frame.items) {
            KMContainerNode *node = item.kind == Pmx::DisplayedBone
                                        ? static_cast<KMContainerNode *>(rig.bones().value(item.index, nullptr))
                                        : mesh.morphs().value(item.index, nullptr);
            if (node)
                items << DisplayItem::of(node);
        }
        auto *group = new KMDisplayNode;
        group->setName(frame.name.local);
        group->setEnName(frame.name.universal);
        group->setSpecial(frame.isSpecial);
        group->setItems(items);
        gProject->addToScene(group, KMProject::Naming::Keep);
    }
}
