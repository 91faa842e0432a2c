#pragma once

#include "shell/attributes/KMTagPage.h"

#include <QVector>

#include <functional>

class KMTagBoneWeight;
class QLabel;
struct KMWeightParameters;

/// A weight tag: its name, its settings, and how much it holds.
class KMWeightTagPage : public KMTagPage
{
    Q_OBJECT
public:
    explicit KMWeightTagPage(KMTagBoneWeight *tag);

    void refresh() override;

private:
    void addSettings();
    QLabel *addCount(const QString &label, const QString &objectName);
    void edit(const std::function<void(KMWeightParameters &)> &change); ///< nothing when it makes no difference
    void showCounts();

    KMTagBoneWeight *m_tag;
    QComboBox *m_method = nullptr;
    KMNumberField *m_blend = nullptr;
    QCheckBox *m_autoNormalize = nullptr;
    QLabel *m_entries;
    QLabel *m_bones;
    QLabel *m_sdefVertices;
    int m_shownRevision = -1;  // of the tag, whose entries are counted
    QVector<bool> m_shownLive; // its bones then, by number
};
