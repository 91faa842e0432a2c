#include "tools/KMMorphCommands.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMTagMorph.h"
#include "tools/KMMorphDialog.h"
#include "tools/KMMorphTargets.h"

#include <QApplication>

#include <algorithm>

namespace {

bool isReplaceWanted(const QString &name)
{
    KMMessage question;
    question.icon = QMessageBox::Question;
    question.text = QLatin1Char('"') + name
                    + QApplication::translate("MorphComAssignMorph", "\"\nalready exists.\nDo you want to replace it?");
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    question.defaultButton = QMessageBox::No;
    question.parent = QApplication::activeWindow();
    return KMPrompt::current().message(question) == QMessageBox::Yes;
}

/// What leads from the base to the target, for the vertices of the owner, which are those of the base by rank.
MorphDeltas deltasOf(const KMMeshNode &owner, const KMMeshNode &base, const KMMeshNode &target, bool onlySelected,
                     float ratio)
{
    KMMorph morph;
    KMTagMorph::buildDeltas(&morph, base, target, onlySelected, ratio);
    if (&base == &owner)
        return morph.deltas();
    const QVector<int> from = KMTagMorph::rankedVertices(base);
    const QVector<int> to = KMTagMorph::rankedVertices(owner);
    MorphDeltas deltas;
    for (MorphDelta delta : morph.deltas()) {
        const auto rank = std::lower_bound(from.begin(), from.end(), delta.vertex) - from.begin();
        delta.vertex = to.value(int(rank), -1);
        if (delta.vertex >= 0)
            deltas << delta;
    }
    return deltas;
}

} // namespace

QString MorphComAssignMorph::obstacle() const
{
    const QString missing = KMMorphCommand::obstacle();
    if (missing.isEmpty() && KMMorphTargets::candidates(*KMMorphTargets::tag()).isEmpty())
        return tr("Not found a candidate meshs.");
    return missing;
}

/// The shape comes from the current mesh, where it is a candidate, else from the first one; its vertices are compared
/// with those of the tag's mesh, or of another candidate.
KMMorphCommand::Work MorphComAssignMorph::plan(KMTagMorph &tag, const Morphs &)
{
    QList<KMMeshNode *> bases = KMMorphTargets::candidates(tag);
    KMMeshNode *source = bases.first();
    for (KMMeshNode *mesh : std::as_const(bases)) {
        if (mesh == gSolution->currentNode())
            source = mesh;
    }
    bases.removeOne(source);
    bases.prepend(tag.mesh());

    KMOptionForm form{text(),
                      {{QStringLiteral("base-mesh"), tr("BaseMesh"), KMOption::Choice, 0},
                       {QStringLiteral("morph-name"), tr("MorphName"), KMOption::Text, source->name()},
                       {QStringLiteral("only-selected"), tr("OnlySelected"), KMOption::Bool, m_onlySelected},
                       {QStringLiteral("ratio"), tr("Ratio"), KMOption::Float, 1.0}},
                      QApplication::activeWindow()};
    for (const KMMeshNode *mesh : std::as_const(bases))
        form.options.first().choices << mesh->name();
    if (!KMPrompt::current().options(form))
        return {};
    m_onlySelected = form.value(QStringLiteral("only-selected")).toBool();
    const KMMeshNode *base = bases.value(form.value(QStringLiteral("base-mesh")).toInt(), tag.mesh());
    const QString entered = form.value(QStringLiteral("morph-name")).toString().trimmed();
    const QString name = entered.isEmpty() ? KMMorph().name() : entered;
    const float ratio = form.value(QStringLiteral("ratio")).toFloat();
    const MorphDeltas deltas = deltasOf(*tag.mesh(), *base, *source, m_onlySelected, ratio);

    if (KMMorph *present = tag.findMorph(name)) {
        if (!isReplaceWanted(name))
            return {};
        return [present, deltas] { gSolution->push(new editMorphDataCommand(present, deltas)); };
    }
    return [&tag, source, name, deltas] {
        auto *morph = new KMMorph;
        morph->setName(name);
        morph->setDeltas(deltas);
        gSolution->push(new addMorphCommand(&tag, morph));
        gSolution->push(new setVisibleCommand(source, false));
    };
}

KMMorphCommand::Work MorphComEditAttr::plan(KMTagMorph &, const Morphs &selected)
{
    KMMorphDialog dialog(selected, QApplication::activeWindow());
    if (!KMPrompt::current().dialog(dialog))
        return {};
    QList<std::function<void()>> edits;
    for (int i = 0; i < selected.size(); ++i) {
        KMMorph *morph = selected[i];
        const int panel = dialog.panel(i);
        const QString name = dialog.name(i).trimmed();
        if (panel != morph->panel())
            edits << [morph, panel] { gSolution->push(new editMorphTypeCommand(morph, panel)); };
        if (!name.isEmpty() && name != morph->name())
            edits << [morph, name] { gSolution->push(new renameNodeCommand(morph, name)); };
    }
    if (edits.isEmpty())
        return {};
    return [edits] {
        for (const std::function<void()> &edit : edits)
            edit();
    };
}
