#include "shell/attributes/KMProjectPage.h"

#include "core/KMProject.h"
#include "core/KMTreeWidget.h"

#include <QLabel>

KMProjectPage::KMProjectPage(KMProject *project)
    : KMNodePage(project)
    , m_project(project)
    , m_information(new QLabel)
    , m_nodes(new QLabel)
    , m_shaders(new QLabel)
    , m_textures(new QLabel)
{
    m_information->setWordWrap(true);
    m_information->setTextFormat(Qt::PlainText);
    m_information->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    addRow(tr("Information"), m_information, QStringLiteral("information"));
    addRow(tr("Nodes"), m_nodes, QStringLiteral("nodeCount"));
    addRow(tr("Shaders"), m_shaders, QStringLiteral("shaderCount"));
    addRow(tr("Textures"), m_textures, QStringLiteral("textureCount"));
}

void KMProjectPage::refresh()
{
    KMNodePage::refresh();
    m_information->setText(m_project->information());
    m_nodes->setNum(KMTreeWidget::flatten(m_project->tree()).size());
    m_shaders->setNum(m_project->shaders().size());
    m_textures->setNum(m_project->textures().size());
}
