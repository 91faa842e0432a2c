#include "core/KMWaitingMacro.h"

#include "core/KMSolution.h"

#include <QList>

#include <utility>

KMWaitingMacro *KMWaitingMacro::s_innermost = nullptr;

KMWaitingMacro::KMWaitingMacro(const QString &text)
    : m_text(text)
    , m_outer(std::exchange(s_innermost, this))
{
}

KMWaitingMacro::~KMWaitingMacro()
{
    if (m_hasBegun)
        gSolution->endMacro();
    else
        s_innermost = m_outer;
}

void KMWaitingMacro::beginAll()
{
    QList<KMWaitingMacro *> outermostFirst;
    for (KMWaitingMacro *macro = std::exchange(s_innermost, nullptr); macro; macro = macro->m_outer)
        outermostFirst.prepend(macro);
    for (KMWaitingMacro *macro : std::as_const(outermostFirst)) {
        macro->m_hasBegun = true;
        gSolution->beginMacro(macro->m_text);
    }
}
