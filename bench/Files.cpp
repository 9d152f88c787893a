// Big curve files: the XML format beside the bare stream reader, and the older format.

#include "BenchKeys.h"
#include "SideBySide.h"

#include "core/FunctionFloatBase.h"
#include "core/VectorRegisters.h"
#include "curves/CurveFile.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <fstream>

namespace {

constexpr unsigned xmlKeys = 100000;
constexpr unsigned olderKeys = 1000000;
constexpr int repetitions = 11; // of seconds, which need no more

// Keys of all four kinds in turn.
void addMixedKeys(SplineBase& spline, const unsigned& count)
{
    for (unsigned i = 0; i < count; ++i) {
        const auto type = static_cast<zk_spline::interpolationType>(i % 4);
        spline.addPointPtr(new PointInfo(benchKey(i, type)));
    }
}

// Written when first asked for, gone with the program.
class BigFiles
{
public:
    QString xml()
    {
        const QString path = folder.filePath("big.xml");
        if (!QFile::exists(path)) {
            SplineBase spline;
            addMixedKeys(spline, xmlKeys);
            QString error;
            curve_editor::writeCurveFile(path, &spline, nullptr, error);
        }
        return path;
    }

    std::string older()
    {
        const QString path = folder.filePath("big.txt");
        if (!QFile::exists(path)) {
            SplineBase spline;
            addMixedKeys(spline, olderKeys);
            std::ofstream stream(path.toStdString());
            SplineBase::save(spline, stream);
        }
        return path.toStdString();
    }

private:
    QTemporaryDir folder;
};

BigFiles& bigFiles()
{
    static BigFiles files;
    return files;
}

void readXml(benchmark::State& state)
{
    const QString path = bigFiles().xml();
    for (auto _ : state) {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
        QString error;
        if (!curve_editor::readCurveFile(path, &spline, &expression, error) ||
            spline.getControlPointsNumber() != xmlKeys) {
            state.SkipWithError("the XML file was not read");
        }
        delete expression;
    }
    VectorRegisters::clearUpperHalves(); // for the next benchmark
}

void readXmlBare(benchmark::State& state)
{
    const QString path = bigFiles().xml();
    for (auto _ : state) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            state.SkipWithError("the XML file was not opened");
            break;
        }
        QXmlStreamReader stream(&file);
        while (!stream.atEnd()) {
            benchmark::DoNotOptimize(stream.readNext());
        }
        if (stream.hasError()) {
            state.SkipWithError("the XML file is not well-formed");
        }
    }
    VectorRegisters::clearUpperHalves();
}

void readOlder(benchmark::State& state)
{
    const std::string path = bigFiles().older();
    for (auto _ : state) {
        SplineBase spline;
        std::ifstream stream(path);
        SplineBase::load(&spline, stream);
        if (spline.getControlPointsNumber() != olderKeys) {
            state.SkipWithError("the older file was not read");
        }
    }
}

BENCHMARK(readXml)->Name("xml/ours")->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
BENCHMARK(readXmlBare)->Name("xml/bare")->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
BENCHMARK(readOlder)
    ->Name("older format/1000000")
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(repetitions);

} // namespace
