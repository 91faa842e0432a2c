#pragma once

#include "shell/docks/KMDockWidget.h"

class KMAttributePage;
class QScrollArea;

/// The values of what was chosen last: a node of the tree, a shader, a texture, a tag; of the document where there
/// is none. The session says what is current, the panel only which kind it shows.
class kmattributewidget : public KMDockWidget
{
    Q_OBJECT
public:
    enum Subject { Node, Shader, Texture, Tag, Bone };

    explicit kmattributewidget(QWidget *parent = nullptr);

    void showSubject(Subject subject);
    void showFor(KMNode *node); ///< the kind that the node is of; the current node's where it is null
    KMAttributePage *page() const { return m_page; } ///< null while there is no document

    /// After a step: a bone that the mouse has made current is what is shown, while its rig is.
    void followSession();

    void commit() override;
    void refresh() override;
    void resetDocument() override;
    void releaseDocument() override;

private:
    KMNode *subjectNode() const;
    void setPageFor(KMNode *node);
    void dropPage();

    Subject m_subject = Node;
    bool m_released = false;
    KMNode *m_node = nullptr; // what the page shows
    KMNode *m_bone = nullptr; // current after the last step; may be gone
    KMAttributePage *m_page = nullptr;
    QScrollArea *m_area;
};
