#include "shell/attributes/KMTagPage.h"

#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTagCommands.h"
#include "rig/KMRigTags.h"
#include "shell/widgets/KMTextField.h"

KMTagPage::KMTagPage(KMTagBase *tag, const QString &title)
    : m_tag(tag)
    , m_name(addText(tr("Name"), QStringLiteral("name")))
{
    connect(m_name, &KMTextField::committed, this, [this](const QString &text) {
        const QString name = text.trimmed();
        if (name.isEmpty() || name == m_tag->name())
            KMTagPage::refresh();
        else
            gSolution->push(new renameTagCommand(m_tag, name));
    });
    if (!title.isEmpty())
        addHeading(title);
}

void KMTagPage::refresh()
{
    KMAttributePage::refresh();
    m_name->showText(m_tag->name());
    setEnabled(!KMRigTags::lockOf(m_tag->owner()));
}
