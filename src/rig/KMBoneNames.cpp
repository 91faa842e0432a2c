#include "rig/KMBoneNames.h"

#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

#include <QRegularExpression>

namespace {

QString withoutDigits(QString name)
{
    static const QRegularExpression digit(QStringLiteral("[0-9]"));
    return name.remove(digit);
}

} // namespace

KMBoneNames::KMBoneNames(const KMBoneContainer &container)
{
    for (const KMBone *bone : container.bones())
        m_taken.insert(bone->name());
}

void KMBoneNames::take(const QString &name)
{
    m_taken.insert(name);
    const auto numbered = m_numbered.find(withoutDigits(name));
    if (numbered != m_numbered.end())
        numbered->second.take(name);
}

QString KMBoneNames::unique(const QString &name)
{
    const QString base = withoutDigits(name);
    auto numbered = m_numbered.find(base);
    if (numbered == m_numbered.end()) {
        numbered = m_numbered.emplace(base, KMNumberedNames(base)).first;
        for (const QString &taken : std::as_const(m_taken))
            numbered->second.take(taken);
    }
    const QString free = numbered->second.firstFree();
    take(free);
    return free;
}
