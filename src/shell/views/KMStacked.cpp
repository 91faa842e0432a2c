#include "shell/views/KMStacked.h"

KMStacked::KMStacked(QWidget *parent)
    : QStackedWidget(parent)
{
    setObjectName(QStringLiteral("KMStacked"));
    setFrameShape(QFrame::NoFrame);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}
