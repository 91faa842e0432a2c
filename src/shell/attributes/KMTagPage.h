#pragma once

#include "shell/attributes/KMAttributePage.h"

class KMTagBase;

/// The name of a tag, and the base of pages of tags that hold more.
class KMTagPage : public KMAttributePage
{
    Q_OBJECT
public:
    explicit KMTagPage(KMTagBase *tag, const QString &title = {}); ///< the title heads what follows the name

    void refresh() override;

private:
    KMTagBase *m_tag;
    KMTextField *m_name;
};
