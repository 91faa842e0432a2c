#pragma once

#include <QDialog>

#include <array>

class KMProject;
class QLineEdit;
class QPlainTextEdit;

/// Name, information and the four texts of the project.
class KMProjectDialog : public QDialog
{
    Q_OBJECT
public:
    explicit KMProjectDialog(KMProject &project, QWidget *parent = nullptr);

    void apply(); ///< what differs from the project, as one step of the history; none when nothing does

private:
    KMProject &m_project;
    QLineEdit *m_name;
    QPlainTextEdit *m_information;
    std::array<QLineEdit *, 4> m_texts;
};
