#pragma once

#include <QFont>

/// The font of the program by the settings Global/FontType and Global/FontSize. An empty family stands for the
/// program's own choice, the same one under every language: models with Japanese names are opened under all of them.
QFont applicationFont(const QString &family, int points);
