#pragma once

#include "core/KMChangeValueCommand.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

class KMVariantNode;

/// Sets the value of a parameter and shows it in the widget that edits it, as long as there is one.
/// The widget may be null or go away at any time; it is set with its signals blocked.
template <class Value>
class setParameterCommand : public changeValueCommand<Value>
{
protected:
    setParameterCommand(const QString &text, KMVariantNode *parameter, Value before, Value after, QWidget *editor);
    void write(const Value &value) override;

private:
    KMVariantNode *m_parameter;
    QPointer<QWidget> m_editor;
};

class setIntIntCommand : public setParameterCommand<int>
{
    Q_DECLARE_TR_FUNCTIONS(setIntIntCommand)
public:
    setIntIntCommand(KMVariantNode *parameter, int before, int after, QWidget *editor = nullptr);
};

class setBoolBoolCommand : public setParameterCommand<bool>
{
    Q_DECLARE_TR_FUNCTIONS(setBoolBoolCommand)
public:
    setBoolBoolCommand(KMVariantNode *parameter, bool before, bool after, QWidget *editor = nullptr);
};

class setFloatFloatCommand : public setParameterCommand<float>
{
    Q_DECLARE_TR_FUNCTIONS(setFloatFloatCommand)
public:
    setFloatFloatCommand(KMVariantNode *parameter, float before, float after, QWidget *editor = nullptr);
};
