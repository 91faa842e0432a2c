#pragma once

#include <QDialog>

/// Asks the user, once and for all, to respect the rights of those who made what a model is made of.
class PmxAgreement : public QDialog
{
    Q_OBJECT
public:
    explicit PmxAgreement(QWidget *parent = nullptr);

    /// Whether the user agrees: asks unless that was answered with yes before. The answer stays in the settings file
    /// where a window asked.
    static bool obtain();
};
