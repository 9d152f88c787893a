#pragma once

#include <QRegularExpression>
#include <QTest>

/// Makes every Qt warning that the running test did not announce with QTest::ignoreMessage fail
/// that test. Call it from init(). Let through is only what the offscreen platform says of its own
/// limits.
inline void failOnUnexpectedWarning()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support )")));
}
