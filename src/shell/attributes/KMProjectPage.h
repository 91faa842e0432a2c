#pragma once

#include "shell/attributes/KMNodePage.h"

class KMProject;
class QLabel;

/// What is shown while no node is current: the document's name, what it says about itself and how much is in it.
class KMProjectPage : public KMNodePage
{
    Q_OBJECT
public:
    explicit KMProjectPage(KMProject *project);

    void refresh() override;

private:
    KMProject *m_project;
    QLabel *m_information;
    QLabel *m_nodes;
    QLabel *m_shaders;
    QLabel *m_textures;
};
