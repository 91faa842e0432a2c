#pragma once

#include <QPlainTextEdit>

/// Some lines of text that are handed over once, with Ctrl+Enter or when the focus leaves them, and only when they
/// were changed. Escape brings back what was shown.
class KMTextArea : public QPlainTextEdit
{
    Q_OBJECT
public:
    explicit KMTextArea(QWidget *parent = nullptr);

    void showText(const QString &text); ///< what the model holds
    void commit();

    QSize sizeHint() const override; ///< a few lines
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void committed(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    QString m_shown;
};
