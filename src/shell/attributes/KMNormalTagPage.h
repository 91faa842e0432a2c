#pragma once

#include "shell/attributes/KMTagPage.h"

class KMTagNormal;
class QLabel;

/// A normal tag: its name, and how much it holds.
class KMNormalTagPage : public KMTagPage
{
    Q_OBJECT
public:
    explicit KMNormalTagPage(KMTagNormal *tag);

    void refresh() override;

private:
    QLabel *addCount(const QString &label, const QString &objectName);

    KMTagNormal *m_tag;
    QLabel *m_creases;
    QLabel *m_fixed;
    QLabel *m_rotated;
};
