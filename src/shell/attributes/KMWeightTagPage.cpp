#include "shell/attributes/KMWeightTagPage.h"

#include "core/KMSolution.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMTagBoneWeight.h"
#include "shell/widgets/KMNumberField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include <numeric>

KMWeightTagPage::KMWeightTagPage(KMTagBoneWeight *tag)
    : KMTagPage(tag)
    , m_tag(tag)
{
    addHeading(tr("BoneWeightTag"));
    addSettings();
    m_entries = addCount(tr("Weights"), QStringLiteral("weights"));
    m_bones = addCount(tr("Bones"), QStringLiteral("bones"));
    m_sdefVertices = addCount(tr("SDEF vertices"), QStringLiteral("sdefVertices"));
}

void KMWeightTagPage::addSettings()
{
    constexpr double mostPercent = 100000.0;
    m_method = addChoice(tr("SDEF Calc Method"), QStringLiteral("sdefMethod"), {tr("Parent"), tr("Child"), tr("Both")});
    connect(m_method, qOverload<int>(&QComboBox::activated), this,
            [this](int entry) { edit([entry](KMWeightParameters &p) { p.sdefMethod = entry; }); });
    m_blend = addNumber(tr("SDEF BlendValue"), QStringLiteral("sdefBlend"));
    m_blend->setRange(-mostPercent, mostPercent);
    connect(m_blend, &KMNumberField::committed, this,
            [this](double number) { edit([number](KMWeightParameters &p) { p.sdefBlend = float(number); }); });
    m_autoNormalize = addCheck(tr("Auto Normalize"), QStringLiteral("autoNormalize"));
    connect(m_autoNormalize, &QCheckBox::clicked, this,
            [this](bool on) { edit([on](KMWeightParameters &p) { p.autoNormalize = on; }); });
}

QLabel *KMWeightTagPage::addCount(const QString &label, const QString &objectName)
{
    auto *count = new QLabel;
    addRow(label, count, objectName);
    return count;
}

void KMWeightTagPage::edit(const std::function<void(KMWeightParameters &)> &change)
{
    KMWeightParameters parameters = m_tag->parameters();
    change(parameters);
    if (m_tag->mesh() && parameters != m_tag->parameters())
        gSolution->push(new editTagBoneWeightCommand(m_tag->mesh(), m_tag, parameters));
}

void KMWeightTagPage::refresh()
{
    KMTagPage::refresh();
    const KMWeightParameters &parameters = m_tag->parameters();
    m_method->setCurrentIndex(parameters.sdefMethod);
    m_blend->showNumber(double(parameters.sdefBlend));
    m_autoNormalize->setChecked(parameters.autoNormalize);
    showCounts();
}

/// Of the bones that are there. A tag has hundreds of thousands of entries, and most edits are about something else.
void KMWeightTagPage::showCounts()
{
    QVector<bool> live;
    for (int i = 0; i < m_tag->bones().size(); ++i)
        live.append(m_tag->isLive(i));
    if (m_shownRevision == m_tag->revision() && m_shownLive == live)
        return;
    m_shownRevision = m_tag->revision();
    m_shownLive = live;
    QVector<int> entries(live.size());
    for (int i = 0; i < m_tag->lists().vertexCount(); ++i) {
        for (const KMBoneShare &share : m_tag->lists().of(i))
            entries[share.bone] += live.at(share.bone);
    }
    const auto bones = entries.size() - entries.count(0);
    m_entries->setText(QString::number(std::accumulate(entries.begin(), entries.end(), 0)));
    m_bones->setText(QString::number(bones));
    m_sdefVertices->setText(QString::number(m_tag->sdefVertices().size()));
}
