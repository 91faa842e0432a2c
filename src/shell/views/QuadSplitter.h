#pragma once

#include "shell/views/DualSplitter.h"

/// Four views in two rows. The dividers of the rows stand one above the other and move together.
class QuadSplitter : public DualSplitter
{
    Q_OBJECT
public:
    explicit QuadSplitter(QWidget *parent = nullptr);

    DualSplitter *row(int number) const { return number == 0 ? m_upper : m_lower; } ///< 0 or 1; the views go in there
    double shareX() const { return m_upper->share(); }                              ///< of the left views, 0 to 1
    void setShareX(double share);

private:
    DualSplitter *m_upper;
    DualSplitter *m_lower;
};
