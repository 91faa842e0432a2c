#include "shell/attributes/KMNodePage.h"

#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"
#include "shell/KMNodeEdits.h"
#include "shell/widgets/KMTextField.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

KMNodePage::KMNodePage(KMContainerNode *node)
    : m_node(node)
    , m_name(addText(tr("Name"), QStringLiteral("name")))
{
    connect(m_name, &KMTextField::committed, this, &KMNodePage::rename);
    if (isTreeNode(node->type()))
        addSwitches();
}

void KMNodePage::addSwitches()
{
    m_others = new QLabel;
    m_others->setObjectName(QStringLiteral("others"));
    m_others->setWordWrap(true);
    form()->insertRow(0, m_others);

    m_visible = new QCheckBox(tr("Visible"));
    m_visible->setObjectName(QStringLiteral("visible"));
    m_locked = new QCheckBox(tr("Locked"));
    m_locked->setObjectName(QStringLiteral("locked"));
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_visible);
    layout->addWidget(m_locked);
    layout->addStretch(1);
    addRow({}, row, QStringLiteral("switches"));
    connect(m_visible, &QCheckBox::clicked, this,
            [this](bool on) { KMNodeEdits::setVisible(KMNodeEdits::affectedBy(m_node), on); });
    connect(m_locked, &QCheckBox::clicked, this,
            [this](bool on) { KMNodeEdits::setLocked(KMNodeEdits::affectedBy(m_node), on); });
}

void KMNodePage::rename(const QString &text)
{
    const QString name = text.trimmed();
    if (name.isEmpty() || name == m_node->name())
        KMNodePage::refresh(); // a row without a name could not be found again
    else
        m_node->pushRenameCommand(name);
}

void KMNodePage::refresh()
{
    KMAttributePage::refresh();
    m_name->showText(m_node->name());
    if (!m_visible)
        return;
    m_visible->setChecked(m_node->isVisible());
    m_locked->setChecked(m_node->isLocked());
    const int selected = KMNodeEdits::affectedBy(m_node).size();
    m_others->setVisible(selected > 1);
    m_others->setText(
        m_node->type() == KMNodeType::Bone
            ? tr("%1 bones are selected. Switches and limits are set on all of them.").arg(selected)
            : tr("%1 nodes are selected. Switches and coordinates are set on all of them.").arg(selected));
}
