#pragma once

#include <QList>
#include <QSize>

#include <memory>
#include <vector>

class KMCameraNode;
class KMHUDIcon;
class KMRenderer;
class KMViewTool;
class QPointF;

/// The tool buttons that are drawn into the view of the texture's plane: the modes of the UV tool along the upper edge
/// and those of the paint tool along the left one.
class KMToolIcons
{
    Q_DISABLE_COPY(KMToolIcons)
public:
    enum Hit { NoHit = 0, PaintList = 0x100000, UVList = 0x200000, IndexMask = 0xfffff };

    KMToolIcons();
    ~KMToolIcons(); ///< with a context current that shares the pictures, once they were drawn

    void arrange(const QSize &view);
    int codeAt(const QPointF &position) const; ///< NoHit, or the list with the index in it; of two the later one
    KMHUDIcon *icon(int code) const;           ///< null for an unknown code
    QList<KMHUDIcon *> all() const;
    void sync(const KMViewTool *tool); ///< only the mode of that tool is checked; null for none

    void draw(KMRenderer &renderer, const KMCameraNode &camera); ///< with the view's context current

private:
    struct Placed
    {
        int code;
        std::unique_ptr<KMHUDIcon> icon;
    };
    std::vector<Placed> m_icons;
};
