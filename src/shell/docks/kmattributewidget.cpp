#include "shell/docks/kmattributewidget.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTreeWidget.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "shell/attributes/KMAttributePage.h"
#include "shell/attributes/KMAttributePages.h"

#include <QScrollArea>

kmattributewidget::kmattributewidget(QWidget *parent)
    : KMDockWidget(QStringLiteral("kmattributewidget"), tr("Attribute"), QStringLiteral("attribute"), parent)
    , m_area(new QScrollArea)
{
    m_area->setObjectName(QStringLiteral("attributeArea"));
    m_area->setWidgetResizable(true);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFrameShape(QFrame::NoFrame);
    setWidget(m_area);
    connect(gSolution, &KMSolution::currentNodeChanged, this, &kmattributewidget::refresh);
    connect(gProject->tree(), &QTreeWidget::itemSelectionChanged, this, &kmattributewidget::refresh,
            Qt::QueuedConnection);
}

void kmattributewidget::showSubject(Subject subject)
{
    m_subject = subject;
    refresh();
}

void kmattributewidget::showFor(KMNode *node)
{
    const int type = node ? node->type() : 0;
    showSubject(isShader(type)             ? Shader
                : isTexture(type)          ? Texture
                : isTag(type)              ? Tag
                : type == KMNodeType::Bone ? Bone
                                           : Node);
}

void kmattributewidget::followSession()
{
    KMNode *bone = gSolution->currentBone();
    if (bone && bone != m_bone && nodeAs<KMBone>(bone)->container() == gSolution->currentNode())
        m_subject = Bone;
    m_bone = bone;
    refresh();
}

KMNode *kmattributewidget::subjectNode() const
{
    KMNode *const subjects[] = {gSolution->currentNode(), gSolution->currentShader(), gSolution->currentTexture(),
                                gSolution->currentTag(), gSolution->currentBone()};
    if (KMNode *chosen = subjects[m_subject])
        return chosen;
    return gSolution->currentNode() ? gSolution->currentNode() : gProject;
}

void kmattributewidget::refresh()
{
    if (m_released || !gProject)
        return;
    KMNode *node = subjectNode();
    if (node != m_node || !m_page)
        setPageFor(node);
    if (m_page)
        m_page->refresh();
}

void kmattributewidget::setPageFor(KMNode *node)
{
    dropPage();
    m_node = node;
    m_page = KMAttributePages::makeFor(node);
    if (!m_page)
        return;
    for (QWidget *child : m_page->findChildren<QWidget *>()) {
        if (child->focusPolicy() != Qt::NoFocus)
            child->setFocusPolicy(Qt::ClickFocus);
    }
    m_area->setWidget(m_page);
}

/// The page may be the one whose editor is just handing over its value, so it goes later.
void kmattributewidget::dropPage()
{
    m_node = nullptr;
    if (!m_page)
        return;
    m_page->retire();
    m_area->takeWidget();
    m_page->hide();
    m_page->deleteLater();
    m_page = nullptr;
}

void kmattributewidget::commit()
{
    if (m_page)
        m_page->commit();
}

void kmattributewidget::resetDocument()
{
    dropPage();
    m_subject = Node;
    m_bone = nullptr;
    refresh();
}

void kmattributewidget::releaseDocument()
{
    m_released = true;
    dropPage();
}
