#include "shell/views/QuadSplitter.h"

QuadSplitter::QuadSplitter(QWidget *parent)
    : DualSplitter(Qt::Vertical, parent)
    , m_upper(new DualSplitter)
    , m_lower(new DualSplitter)
{
    addWidget(m_upper);
    addWidget(m_lower);
    connect(m_upper, &DualSplitter::shareChanged, m_lower, &DualSplitter::setShare);
    connect(m_lower, &DualSplitter::shareChanged, m_upper, &DualSplitter::setShare);
}

void QuadSplitter::setShareX(double share)
{
    m_upper->setShare(share);
    m_lower->setShare(share);
}
