#include "core/KMValueCommands.h"

#include "core/KMContainerNode.h"
#include "core/KMVariantNode.h"

#include <QComboBox>
#include <QMetaProperty>
#include <QSignalBlocker>

namespace {

/// Spin boxes, sliders and check boxes name the property that the user edits; of a combo box it is the text,
/// but the parameter counts its entries.
void showInEditor(QWidget *editor, const QVariant &value)
{
    const QSignalBlocker quiet(editor);
    if (auto *box = qobject_cast<QComboBox *>(editor))
        box->setCurrentIndex(value.toInt());
    else
        editor->metaObject()->userProperty().write(editor, value);
}

} // namespace

template <class Value>
setParameterCommand<Value>::setParameterCommand(const QString &text, KMVariantNode *parameter, Value before,
                                                Value after, QWidget *editor)
    : changeValueCommand<Value>(text, parameter->owner(), before, after)
    , m_parameter(parameter)
    , m_editor(editor)
{
}

template <class Value>
void setParameterCommand<Value>::write(const Value &value)
{
    m_parameter->setValue(QVariant(value));
    if (m_parameter->owner() && m_editor)
        showInEditor(m_editor, value);
}

setIntIntCommand::setIntIntCommand(KMVariantNode *parameter, int before, int after, QWidget *editor)
    : setParameterCommand(tr("Set Int"), parameter, before, after, editor)
{
}

setBoolBoolCommand::setBoolBoolCommand(KMVariantNode *parameter, bool before, bool after, QWidget *editor)
    : setParameterCommand(tr("Set Bool"), parameter, before, after, editor)
{
}

setFloatFloatCommand::setFloatFloatCommand(KMVariantNode *parameter, float before, float after, QWidget *editor)
    : setParameterCommand(tr("Set Float"), parameter, before, after, editor)
{
}

template class setParameterCommand<int>;
template class setParameterCommand<bool>;
template class setParameterCommand<float>;
