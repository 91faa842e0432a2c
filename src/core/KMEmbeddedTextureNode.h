#pragma once

#include "core/KMTextureNode.h"

/// A texture whose pixels lie in the document itself. They are kept packed as a file holds them and unpacked
/// when they are first asked for: a few bytes of a file may stand for a picture of gigabytes.
class KMEmbeddedTextureNode : public KMTextureNode
{
    Q_OBJECT
public:
    KMEmbeddedTextureNode();

    QImage image() const override; ///< null when the packed picture is damaged or larger than 16384 on a side
    void setImage(const QImage &image);
    QByteArray encodedImage() const;             ///< the picture as a PNG; empty when there is none
    void setEncodedImage(const QByteArray &png); ///< taken as it is, and given back so even when it is damaged
    KMContainerNode *clone() const override;

private:
    mutable QByteArray m_encoded; // of the picture, when it isn't empty
    mutable QImage m_image;
    mutable bool m_isPacked = false; // the image wasn't asked for yet; once it was, a damaged one stays null
};
