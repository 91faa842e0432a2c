#include "formats/KMMotionTarget.h"

#include "core/KMCommand.h"
#include "core/KMInputFile.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>

#include <cmath>

namespace {

bool isRig(const KMNode *node)
{
    return node && node->type() == KMNodeType::BoneContainer;
}

KMBoneContainer *currentOrFirst()
{
    if (KMNode *current = gSolution->currentNode(); isRig(current)) {
        auto *rig = nodeAs<KMBoneContainer>(current);
        if (!rig->isDeleted())
            return rig;
    }
    return KMBoneContainer::inTree().value(0);
}

QString fault(const KMBoneContainer *rig)
{
    if (!rig)
        return QCoreApplication::translate("KMMotionTarget", " RootBone not found.");
    if (rig->bones().isEmpty())
        return QCoreApplication::translate("KMMotionTarget", "BoneNode doesn't exist.");
    if (rig->isLocked())
        return QCoreApplication::translate("KMMotionTarget", "%1 is locked").arg(rig->name());
    return {};
}

} // namespace

namespace KMMotionTarget {

KMBoneContainer *rig()
{
    KMBoneContainer *rig = currentOrFirst();
    const QString why = fault(rig);
    if (why.isEmpty())
        return rig;
    KMPrompt::current().warn(why);
    return nullptr;
}

bool open(QFile &file)
{
    const QString why = KMInputFile::open(file);
    return why.isEmpty()
           || fail(QCoreApplication::translate("KMMotionTarget", "file open error."), file.fileName(), why);
}

bool fail(const QString &headline, const QString &path, const QString &sentence)
{
    KMMessage message;
    message.icon = QMessageBox::Warning;
    message.text = headline;
    message.informativeText = QStringLiteral("%1\n%2").arg(QDir::toNativeSeparators(path), sentence);
    qDebug().noquote() << headline << message.informativeText;
    KMPrompt::current().message(message);
    return false;
}

QSet<QString> boneNames(const KMBoneContainer &rig)
{
    QSet<QString> names;
    for (const KMBone *bone : rig.bones())
        names << bone->name();
    return names;
}

void tellFound(int found, int named)
{
    if (found == named && !gSolution->window())
        return; // where there is no status bar a line means trouble
    gSolution->showMessage(QCoreApplication::translate("KMMotionTarget", "%1 of the %2 bones in the file were found")
                               .arg(found)
                               .arg(named),
                           KMCommand::MessageLevel);
}

float sound(float number, bool &isOdd)
{
    constexpr float bound = 1e15f; // whose square is still a number, times as many bones as a chain has
    if (std::abs(number) <= bound)
        return number;
    isOdd = true;
    return 0.0f;
}

} // namespace KMMotionTarget
