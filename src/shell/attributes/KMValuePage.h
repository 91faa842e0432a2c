#pragma once

#include "shell/attributes/KMNodePage.h"

class KMValueNodeContainer;

/// A number or a switch of the tree.
class KMValuePage : public KMNodePage
{
    Q_OBJECT
public:
    explicit KMValuePage(KMValueNodeContainer *container);

    void refresh() override;

private:
    void createEditor();

    KMValueNodeContainer *m_container;
    QCheckBox *m_switch = nullptr; // one of the two
    KMNumberField *m_number = nullptr;
};
