#pragma once

#include <QString>

/// What the steps of gestures are called in the history.
inline const QString selectLabel = QStringLiteral("Select Control Points");
inline const QString moveLabel = QStringLiteral("Move Control Points");
inline const QString changeLabel = QStringLiteral("Change Control Points Values");
