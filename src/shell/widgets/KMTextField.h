#pragma once

#include <QLineEdit>

/// A line of text that is handed over once, at Enter or when the focus leaves it, and only when it was changed.
/// Escape brings back what was shown.
class KMTextField : public QLineEdit
{
    Q_OBJECT
public:
    explicit KMTextField(QWidget *parent = nullptr);

    void showText(const QString &text); ///< what the model holds
    void commit();

signals:
    void committed(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_shown;
};
