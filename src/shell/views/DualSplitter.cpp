#include "shell/views/DualSplitter.h"

#include "core/KMDpi.h"

#include <cmath>

namespace {

constexpr int handleSize = 3;

} // namespace

DualSplitter::DualSplitter(Qt::Orientation orientation, QWidget *parent)
    : QSplitter(orientation, parent)
{
    setHandleWidth(dpiScaled(handleSize));
    setChildrenCollapsible(false);
    connect(this, &QSplitter::splitterMoved, this, [this](int position) {
        if (length() <= 0)
            return;
        m_share = double(position) / length();
        emit shareChanged(m_share);
    });
}

int DualSplitter::length() const
{
    return (orientation() == Qt::Horizontal ? width() : height()) - handleWidth();
}

void DualSplitter::setShare(double share)
{
    m_share = std::isfinite(share) ? qBound(0.0, share, 1.0) : 0.5;
    place();
}

void DualSplitter::place()
{
    const int first = qRound(m_share * length());
    if (length() > 0)
        setSizes({first, length() - first});
}

void DualSplitter::resizeEvent(QResizeEvent *event)
{
    QSplitter::resizeEvent(event);
    place();
}
