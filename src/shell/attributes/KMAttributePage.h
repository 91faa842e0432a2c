#pragma once

#include "shell/widgets/KMFieldPanel.h"

#include <QVector>

#include <functional>

class KMColorField;
class KMContainerNode;
class KMNode;
class KMNumberField;
class KMTextField;
class QCheckBox;
class QComboBox;
class QFormLayout;

/// The values of one node in the attribute panel. Each edit becomes one step of the history; the page shows it when
/// the history has moved, and so shows an undo as well.
class KMAttributePage : public KMFieldPanel
{
    Q_OBJECT
public:
    explicit KMAttributePage(QWidget *parent = nullptr);

    virtual void refresh(); ///< shows what the node holds

    void retire(); ///< the node may be gone: nothing is handed over any more

protected:
    /// Rows of the form, labelled and named after the value that they edit.
    KMTextField *addText(const QString &label, const QString &objectName);
    KMNumberField *addNumber(const QString &label, const QString &objectName);
    KMNumberField *addWhole(const QString &label, const QString &objectName, int least, int most);
    KMColorField *addColor(const QString &label, const QString &objectName);
    QCheckBox *addCheck(const QString &label, const QString &objectName);
    QComboBox *addChoice(const QString &label, const QString &objectName, const QStringList &choices = {});
    void addHeading(const QString &text);
    void addRow(const QString &label, QWidget *editor, const QString &objectName);
    QFormLayout *form() const { return m_form; }
    void onRefresh(const std::function<void()> &show) { m_showers << show; } ///< shows one value of the node

private:
    QFormLayout *m_form;
    QVector<std::function<void()>> m_showers;
};
