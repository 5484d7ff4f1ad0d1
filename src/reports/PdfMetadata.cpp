#include "reports/PdfMetadata.h"

#include "reports/PdfFile.h"
#include "values/Error.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringEncoder>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// What the writer leaves at the end of a file, told by the numbers that an addition needs.
struct Cola {
    QString tablaAnterior;
    QString raiz;
    int objetos = 0;
};

QString Captura(const QString& texto, const QString& patron) {
    return QRegularExpression(patron).match(texto).captured(1);
}

Cola LeeCola(QFile& pdf) {
    constexpr qint64 kBastante = 1024;
    pdf.seek(std::max<qint64>(0, pdf.size() - kBastante));
    const QString fin = QString::fromLatin1(pdf.read(kBastante));
    const QString trailer = fin.sliced(std::max<qsizetype>(0, fin.lastIndexOf("trailer"_L1)));
    Cola cola{Captura(trailer, u"startxref\\s+(\\d+)"_s), Captura(trailer, u"/Root\\s+(\\d+ \\d+ R)"_s),
              Captura(trailer, u"/Size\\s+(\\d+)"_s).toInt()};
    if (cola.tablaAnterior.isEmpty() || cola.raiz.isEmpty() || cola.objetos == 0)
        throw Error(NumeroError::AccesoAlDisco, u"No se puede escribir el archivo '%1'."_s.arg(pdf.fileName()));
    return cola;
}

/// A text in hexadecimal UTF-16, which needs no escapes and holds every letter.
QByteArray TextoPdf(const QString& texto) {
    QStringEncoder codificador(QStringEncoder::Utf16BE, QStringEncoder::Flag::WriteBom);
    const QByteArray bytes = codificador.encode(texto);
    return '<' + bytes.toHex() + '>';
}

QByteArray Informacion(const MetadatosPdf& metadatos) {
    const QByteArray momento = "(D:" + metadatos.momento.toUTC().toString(u"yyyyMMddHHmmss"_s).toLatin1() + "Z)";
    return "<< /Title " + TextoPdf(metadatos.titulo) + " /Author " + TextoPdf(metadatos.autor) +
           " /Creator (xa518) /CreationDate " + momento + " /ModDate " + momento + " >>";
}

} // namespace

void PonMetadatos(QFile& pdf, const MetadatosPdf& metadatos) {
    const Cola cola = LeeCola(pdf);
    const qint64 lugarObjeto = pdf.size() + 1;
    const QByteArray objeto = QByteArray::number(cola.objetos) + " 0 obj\n" + Informacion(metadatos) + "\nendobj\n";
    const qint64 lugarTabla = lugarObjeto + objeto.size();
    const QString tabla = u"xref\n%1 1\n%2 00000 n \ntrailer\n<< /Size %3 /Root %4 /Info %1 0 R /Prev %5 >>\n"
                          "startxref\n%6\n%%EOF\n"_s.arg(cola.objetos)
                              .arg(lugarObjeto, 10, 10, QChar(u'0'))
                              .arg(cola.objetos + 1)
                              .arg(cola.raiz, cola.tablaAnterior)
                              .arg(lugarTabla);
    pdf.seek(pdf.size());
    pdf.write('\n' + objeto + tabla.toLatin1());
}

} // namespace xa518
