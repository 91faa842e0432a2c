#include "render/KMToolIcons.h"

#include "core/KMDpi.h"
#include "render/KMHUDIcon.h"
#include "render/KMViewTool.h"

#include <QAction>
#include <QPointF>

#include <algorithm>

namespace {

/// Modes are numbered from 0 within a list.
struct Row
{
    KMToolIcons::Hit list;
    int toolId;
    const char *drawing;
};

constexpr Row rows[] = {
    {KMToolIcons::UVList, KMViewTool::UVTool, "fourarrows3"},
    {KMToolIcons::UVList, KMViewTool::UVTool, "increase"},
    {KMToolIcons::UVList, KMViewTool::UVTool, "circle100"},
    {KMToolIcons::UVList, KMViewTool::UVTool, "live"},
    {KMToolIcons::PaintList, KMViewTool::PaintTool, "paint_pencil"},
    {KMToolIcons::PaintList, KMViewTool::PaintTool, "paint_brush"},
    {KMToolIcons::PaintList, KMViewTool::PaintTool, "paint_water"},
    {KMToolIcons::PaintList, KMViewTool::PaintTool, "paint_bucket"},
    {KMToolIcons::PaintList, KMViewTool::PaintTool, "paint_eraser"},
    {KMToolIcons::PaintList, KMViewTool::PaintTool, "paint_select"},
};

struct Side
{
    KMToolIcons::Hit list;
    int edge; // pixels from the edge of the view
    int gap;
    bool isUpright;
};

constexpr Side sides[] = {{KMToolIcons::UVList, 8, 12, false}, {KMToolIcons::PaintList, 12, 8, true}};

} // namespace

KMToolIcons::KMToolIcons()
{
    int number = 0;
    int list = NoHit;
    for (const Row &row : rows) {
        number = row.list == list ? number + 1 : 0;
        list = row.list;
        m_icons.push_back({list | number, std::make_unique<KMHUDIcon>(QLatin1String(row.drawing), row.toolId, number)});
    }
}

KMToolIcons::~KMToolIcons() = default;

void KMToolIcons::arrange(const QSize &view)
{
    for (const Side &side : sides) {
        const int count = int(std::count_if(m_icons.cbegin(), m_icons.cend(),
                                            [&side](const Placed &placed) { return placed.code & side.list; }));
        const int step = KMHUDIcon::size() + dpiScaled(side.gap);
        const int length = count * step - dpiScaled(side.gap);
        const int start = ((side.isUpright ? view.height() : view.width()) - length) / 2;
        const int edge = dpiScaled(side.edge);
        for (const Placed &placed : m_icons) {
            if (!(placed.code & side.list))
                continue;
            const int along = start + (placed.code & IndexMask) * step;
            placed.icon->setPosition(side.isUpright ? QPointF(edge, along) : QPointF(along, edge));
        }
    }
}

int KMToolIcons::codeAt(const QPointF &position) const
{
    int code = NoHit;
    for (const Placed &placed : m_icons) {
        if (placed.icon->contains(position))
            code = placed.code;
    }
    return code;
}

KMHUDIcon *KMToolIcons::icon(int code) const
{
    for (const Placed &placed : m_icons) {
        if (placed.code == code)
            return placed.icon.get();
    }
    return nullptr;
}

QList<KMHUDIcon *> KMToolIcons::all() const
{
    QList<KMHUDIcon *> icons;
    for (const Placed &placed : m_icons)
        icons << placed.icon.get();
    return icons;
}

void KMToolIcons::sync(const KMViewTool *tool)
{
    for (const Placed &placed : m_icons)
        placed.icon->action()->setChecked(false);
    for (const Placed &placed : m_icons) {
        if (tool && placed.icon->toolId() == tool->toolId() && placed.icon->mode() == tool->mode())
            placed.icon->action()->setChecked(true);
    }
}

void KMToolIcons::draw(KMRenderer &renderer, const KMCameraNode &camera)
{
    for (const Placed &placed : m_icons)
        placed.icon->draw(renderer, camera);
}
