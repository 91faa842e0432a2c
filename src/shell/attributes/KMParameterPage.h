#pragma once

#include "core/KMSolution.h"
#include "shell/attributes/KMNullPage.h"
#include "shell/widgets/KMNumberField.h"

#include <QCheckBox>
#include <QComboBox>

/// The parameters of one class of nodes, which are one record. Each edit is one step of the history, by the class's
/// command. Base is the page of what the node is besides.
template <class Base, class Node, class Command>
class KMParameterPage : public Base
{
protected:
    using Parameters = typename Node::Parameters;

    static constexpr double Longest = 1e7;
    static constexpr int MostSteps = 9999;

    KMParameterPage(Node *node, const QString &title)
        : Base(node, title)
        , m_node(node)
    {
    }

    template <class Change>
    void edit(const Change &change) ///< nothing when the change makes no difference
    {
        Parameters parameters = m_node->parameters();
        change(parameters);
        if (!(parameters == m_node->parameters()))
            gSolution->push(new Command(m_node, parameters));
    }

    // One row for one member of the record

    KMNumberField *bindLength(const QString &label, const QString &key, float Parameters::*member, double least,
                              double most = Longest)
    {
        KMNumberField *field = this->addNumber(label, key);
        field->setRange(least, most);
        return bindNumber(field, member);
    }
    KMNumberField *bindCount(const QString &label, const QString &key, int Parameters::*member, int least,
                             int most = MostSteps)
    {
        return bindNumber(this->addWhole(label, key, least, most), member);
    }
    template <class Flag>
    void bindCheck(const QString &label, const QString &key, Flag Parameters::*member)
    {
        QCheckBox *box = this->addCheck(label, key);
        QObject::connect(box, &QCheckBox::clicked, this,
                         [this, member](bool on) { edit([&](Parameters &p) { p.*member = Flag(on); }); });
        this->onRefresh([this, box, member] { box->setChecked(m_node->parameters().*member != Flag(0)); });
    }
    /// The entries stand for 0, 1, 2 and so on.
    template <class Number>
    void bindChoice(const QString &label, const QString &key, const QStringList &choices, Number Parameters::*member)
    {
        QComboBox *box = this->addChoice(label, key, choices);
        QObject::connect(box, qOverload<int>(&QComboBox::activated), this,
                         [this, member](int entry) { edit([&](Parameters &p) { p.*member = Number(entry); }); });
        this->onRefresh([this, box, member] { box->setCurrentIndex(int(m_node->parameters().*member)); });
    }
    KMNumberField *bindComponent(const QString &label, const QString &key, kvm::Vector3 Parameters::*member, int axis)
    {
        KMNumberField *field = this->addNumber(label, key);
        field->setRange(-Longest, Longest);
        QObject::connect(field, &KMNumberField::committed, this, [this, member, axis](double number) {
            edit([&](Parameters &p) { (p.*member)[axis] = float(number); });
        });
        this->onRefresh([this, field, member, axis] { field->showNumber(double((parameters().*member)[axis])); });
        return field;
    }

    Parameters parameters() const { return m_node->parameters(); }

private:
    template <class Number>
    KMNumberField *bindNumber(KMNumberField *field, Number Parameters::*member)
    {
        QObject::connect(field, &KMNumberField::committed, this,
                         [this, member](double number) { edit([&](Parameters &p) { p.*member = Number(number); }); });
        this->onRefresh([this, field, member] { field->showNumber(double(m_node->parameters().*member)); });
        return field;
    }

    Node *m_node;
};
