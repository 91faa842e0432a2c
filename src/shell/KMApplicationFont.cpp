#include "shell/KMApplicationFont.h"

QFont applicationFont(const QString &family, int points)
{
    QFont font(family.isEmpty() ? QStringLiteral("Meiryo UI") : family);
    font.setPointSize(points);
    return font;
}
