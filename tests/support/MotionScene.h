#pragma once

#include "support/RigScene.h"
#include "support/ScriptedPrompt.h"

#include <QTemporaryDir>

/// A rig of an arm and a hand for files with motions and poses, with somebody who reads the messages.
class MotionScene : public RigScene
{
public:
    MotionScene(const QString &handName, int frame); ///< the arm's name is not in Latin letters

    QString write(const QByteArray &bytes) const; ///< the path of a file of them

    const QTemporaryDir folder;
    ScriptedPrompt prompt;
    const KMPromptScope scope{&prompt};
    KMBone *arm, *hand; ///< ten units each, up from the origin
};
