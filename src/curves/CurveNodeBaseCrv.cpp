// A curve and the older curve file.

#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "files/CurveContent.h"
#include "files/PipeOrDevice.h"
#include "graphs/SplineCurveGraph.h"

#include <QFile>
#include <QFileInfo>

#include <fstream>
#include <utility>

using curve_editor::Problem;
using curve_editor::Problems;
using curve_files::CurveContent;
using curve_files::CurveFileResult;

void CurveNodeBase::loadCrv(const QString& path, FunctionParserBase* parser)
{
    showBoxes(readCrv(path, parser));
}

Problems CurveNodeBase::readCrv(const QString& path, FunctionParserBase* parser)
{
    // A folder counts as a file that holds no type.
    const bool isFolder = QFileInfo(path).isDir();
    QFile file(path);
    if (path.isEmpty() || curve_files::isPipeOrDevice(path) ||
        (!isFolder && !file.open(QIODevice::ReadOnly))) {
        return {};
    }
    CurveContent read;
    CurveFileResult result;
    if (!isFolder) {
        result = read.read(file, curve_files::CurveFormat::older);
        file.close();
    }
    if (isFolder || (!result && result.problem != CurveFileResult::badKeys)) {
        return {{Problem::warning, tr("Error Loading Curve File"), tr("Curve type not valid")}};
    }
    FunctionFloatBase** const living = livingSlot();
    if (living && read.type != splineCurve) {
        ParseMessage message; // an expression that does not parse leaves the slot empty
        FunctionParserBase& reader = parser ? *parser : *FunctionParserBase::instance();
        ExpressionDisposal::take(
            std::exchange(*living, read.parseExpression(reader, message, parserScope()).release()));
    }
    if (hasKeys(read.type)) {
        keysGraph->selection().clear(); // its keys are about to be freed
        SplineBase* const keys = spline();
        if (keys && result) {
            read.copyKeysTo(*keys);
        }
        keysGraph->setSpline(keys);
    }
    // The type of the curve as it stands now: an expression that a spline file left in place makes
    // it one of type expression.
    if (curveType() != splineCurve) {
        setAddFunc(read.isAddFunc());
    }
    changed = true;
    return {};
}

void CurveNodeBase::saveCrv(std::ofstream& stream)
{
    saveCrv(static_cast<std::ostream&>(stream));
}

void CurveNodeBase::saveCrv(std::ostream& stream)
{
    content().writeOlderBody(stream);
}
