#include <files/CurveContent.h>

#include <QBuffer>

/// A curve goes from one format to the other without a parser that knows its variables.
int main()
{
    QByteArray text = "1\n2\n3\n2\nnobody.knows*2\n1 1 2 0.5\n4 5 0 0 0 0 0 0 0 0 0\n";
    QBuffer older(&text);
    older.open(QIODevice::ReadOnly);
    curve_files::CurveContent content;
    if (!content.read(older) || content.keys.size() != 1) {
        return 1;
    }
    QBuffer xml;
    xml.open(QIODevice::ReadWrite);
    if (!content.write(xml, curve_files::CurveFormat::xml)) {
        return 2;
    }
    xml.seek(0);
    curve_files::CurveContent back;
    return back.read(xml) && back.expressionText == content.expressionText ? 0 : 3;
}
