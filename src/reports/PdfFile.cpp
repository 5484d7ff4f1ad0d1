#include "reports/PdfFile.h"

#include "reports/FollowedReport.h"
#include "reports/PagePainter.h"
#include "reports/PartialFile.h"
#include "reports/PdfDocument.h"
#include "values/Error.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStringEncoder>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Without either the pages would come out empty.
void ExigeLetras() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        throw Error(NumeroError::ArgumentoInvalido, u"No hay dónde dibujar las páginas."_s);
    TraeLetrasDelPrograma();
    if (QFontDatabase::families().isEmpty())
        throw Error(NumeroError::ArgumentoInvalido, u"No hay ninguna letra instalada: %1."_s.arg(kComoTenerLetra));
}

/// A text in hexadecimal UTF-16, which needs no escapes and holds every letter.
QByteArray TextoPdf(const QString& texto) {
    QStringEncoder codificador(QStringEncoder::Utf16BE, QStringEncoder::Flag::WriteBom);
    const QByteArray bytes = codificador.encode(texto);
    return '<' + bytes.toHex() + '>';
}

QByteArray Informacion(const MetadatosPdf& metadatos) {
    const QByteArray momento = "(D:" + metadatos.momento.toUTC().toString(u"yyyyMMddHHmmss"_s).toLatin1() + "Z)";
    return "<</Title " + TextoPdf(metadatos.titulo) + "/Author " + TextoPdf(metadatos.autor) +
           "/Creator(xa518)/CreationDate " + momento + "/ModDate " + momento + ">>";
}

} // namespace

int EscribePdf(const QStringList& spools, const QString& rutaPdf, const MetadatosPdf& metadatos,
               const RangoPaginas& rango, Avance& avance) {
    ExigeLetras();
    ArchivoParcial archivo(rutaPdf);
    DocumentoPdf documento(archivo);
    HojasPdf hojas(documento);
    InformeSeguido seguido(hojas, avance);
    for (const QString& spool : spools) {
        hojas.EmpiezaOtro();
        InformeSpool::Abre(spool)->Imprime(rango, seguido);
    }
    hojas.Termina();
    const int informacion = documento.Reserva();
    documento.Pon(informacion, Informacion(metadatos));
    documento.Termina(hojas.Catalogo(), informacion);
    archivo.Confirma();
    return hojas.Hojas();
}

int EscribePdf(const QStringList& spools, const QString& rutaPdf, const MetadatosPdf& metadatos,
               const RangoPaginas& rango) {
    SinAvance nadie;
    return EscribePdf(spools, rutaPdf, metadatos, rango, nadie);
}

} // namespace xa518
