#include "shell/KMTransformEdit.h"

#include "core/KMCommand.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "core/KMUndoMacro.h"
#include "modifiers/KMObjectTransform.h"
#include "shell/KMNodeEdits.h"
#include "shell/widgets/KMShownAngles.h"

#include <QCoreApplication>
#include <QPair>

#include <algorithm>

namespace {

using Change = QPair<KMNullNode *, KMTransform>;

QString tr(const char *text)
{
    return QCoreApplication::translate("KMTransformEdit", text);
}

KMTransform changed(const KMNullNode *node, KMTransformEdit::Part part, int axis, double number, KMShownAngles &angles)
{
    KMTransform transform = node->transform();
    switch (part) {
    case KMTransformEdit::Position:
        transform.translation[axis] = float(number);
        break;
    case KMTransformEdit::Rotation:
        angles.show(transform.rotation);
        angles.type(axis, float(number));
        transform.rotation = KMShownAngles::rotationOf(angles.degrees());
        break;
    case KMTransformEdit::Scale:
        transform.scale[axis] = float(number);
        break;
    case KMTransformEdit::PartCount:
        break;
    }
    return transform;
}

} // namespace

kvm::Vector3 KMTransformEdit::shown(const KMNullNode *node, Part part, KMShownAngles &angles)
{
    switch (part) {
    case Position:
        return node->translation();
    case Rotation:
        return angles.show(node->rotation());
    case Scale:
        return node->scale();
    case PartCount:
        break;
    }
    return {};
}

bool KMTransformEdit::set(KMNullNode *node, Part part, int axis, double number, KMShownAngles &angles, Reach reach)
{
    QVector<Change> changes;
    for (KMContainerNode *affected : KMNodeEdits::affectedBy(node)) {
        auto *other = static_cast<KMNullNode *>(affected);
        KMShownAngles own;
        if (isTransformable(affected->type()) && (other == node || !other->isLocked()))
            changes << Change(other, changed(other, part, axis, number, other == node ? angles : own));
    }
    const bool flattens = reach == Reach::Object && std::any_of(changes.cbegin(), changes.cend(), [](const Change &c) {
                              return KMObjectTransform::wouldFlatten(c.first, c.second);
                          });
    if (flattens) {
        gSolution->showMessage(tr("A mesh can't have a scale of 0"), KMCommand::MessageLevel);
        return false;
    }
    const KMUndoMacro macro(tr("Edit SRT"));
    for (const Change &change : std::as_const(changes)) {
        if (reach == Reach::Object)
            KMObjectTransform::push(change.first, change.second);
        else
            gSolution->push(new editSRTCommand(change.first, change.second));
    }
    return true;
}
