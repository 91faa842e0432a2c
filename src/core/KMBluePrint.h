#pragma once

#include "core/KMChangeValueCommand.h"
#include "core/KMNullNode.h"

#include <QCoreApplication>

/// What a blueprint shows and how, in the order of the native file. Numbers that files and older programs give and that
/// mean nothing are kept, and drawn as the first of their kind.
struct KMBluePrintValues
{
    enum Mode { InWorld, FixedOnScreen };
    enum Blend { Mix, Add, Multiply };

    int mode = InWorld;
    int texture = -1;   ///< index into KMProject::textures(), -1 for none
    int foreground = 0; ///< 1: drawn in front of the model, else behind it
    int blend = Mix;    ///< with what is behind it
    float alpha = 1.0f;

    bool operator==(const KMBluePrintValues &other) const;
    bool operator!=(const KMBluePrintValues &other) const { return !(*this == other); }
};

static_assert(sizeof(KMBluePrintValues) == 20, "one record of the file");

/// A picture that stands in the view in perspective as a template to model by. Its transform is that of the plate.
class KMBluePrint : public KMNullNode
{
    Q_OBJECT
public:
    KMBluePrint();

    const KMBluePrintValues &values() const { return m_values; }
    void setValues(const KMBluePrintValues &values) { m_values = values; }
    KMContainerNode *clone() const override;
    QSet<int> textureReferences() const override;

private:
    KMBluePrintValues m_values;
};

/// Sets all values of a blueprint.
class blueprintSetParamCommand : public changeValueCommand<KMBluePrintValues>
{
    Q_DECLARE_TR_FUNCTIONS(blueprintSetParamCommand)
public:
    blueprintSetParamCommand(KMBluePrint *bluePrint, const KMBluePrintValues &values);

protected:
    void write(const KMBluePrintValues &values) override;

private:
    KMBluePrint *m_bluePrint;
};
