#include "printouts/ErrorReport.h"

#include "platform/Clock.h"
#include "printouts/DeclarationData.h"
#include "reports/SpoolLines.h"
#include "values/Dates.h"
#include "values/FileFailure.h"
#include "values/Format.h"
#include "values/Text.h"

#include <QFile>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoErrores = 104;
constexpr int kAnchoContribuyente = 110;
constexpr int kColumnaCodigo = 101; ///< its six characters end past the width: wanted, the paper is wider
constexpr int kErroresPorPagina = 69;

/// Rules of 91 in the page and of 89 around the total: wanted, the sheet stays as it is known.
constexpr int kRaya = 91;
constexpr int kRayaTotal = 89;

const QString kSangriaRaya = QString(15, u' ');
const QString kSangria = QString(20, u' ');

QString RayaSangrada(int ancho) {
    return kSangriaRaya + QString(ancho, u'_');
}

void AbreLista(QFile& lista) {
    if (!lista.open(QIODevice::ReadOnly))
        throw FallaDeArchivo(Intento::Leer, lista);
}

int CuentaLineas(const QString& ruta) {
    QFile lista(ruta);
    AbreLista(lista);
    LineasTolerantes lineas(lista);
    int cuenta = 0;
    while (lineas.Siguiente())
        ++cuenta;
    return cuenta;
}

} // namespace

ReporteErrores::ReporteErrores(const Reloj& reloj, DatosErrores datos, EscritorInforme& escritor)
    : m_reloj(&reloj), m_datos(std::move(datos)), m_escritor(&escritor) {}

void ReporteErrores::Imprime() {
    m_hojas = CuentaLineas(m_datos.rutaLista) / kErroresPorPagina + 1;
    m_escritor->PonCabecera([this] { Cabecera(); });
    Cabecera();
    Cuerpo();
    Cuadra(u"Total de Errores:      "_s, kRayaTotal);
}

/// The tags count as lines of every page: with them 69 errors and their sub-total just fill one.
void ReporteErrores::Cabecera() {
    using enum Etiqueta::Clase;
    m_escritor->ImprimeEtiqueta({Fuente, u"Courier New"_s});
    m_escritor->ImprimeEtiqueta({Hojas, QString::number(m_hojas)});
    m_escritor->ImprimeEtiqueta({Orientacion, u"V"_s});
    m_escritor->ImprimeEtiqueta({Color, u"&H80000005&"_s});
    const QDateTime ahora = m_reloj->Ahora();
    const QString pagina = u"Pag:"_s + Format(qint64{m_escritor->PaginaActual()}, u"##").rightJustified(5, u' ');
    const LineaCompuesta lineas[] = {
        LineaCompuesta()
            .PonCentrado(u"QMD AGENTES DE PERCEPCION VENTAS INTERNAS"_s, kAnchoErrores)
            .Pon(1, u"ZOLMA"_s)
            .PonHasta(kAnchoErrores, FormatFecha(ahora.date(), u"dd/mm/yyyy")),
        LineaCompuesta()
            .Pon(1, FormatHora(ahora.time()))
            .PonHasta(kColumnaCodigo - 3, pagina)
            .Pon(kColumnaCodigo, u"PER005"_s),
        LineaCompuesta().PonCentrado(u"REPORTE DE ERRORES DE TRANSFERENCIA - PERIODO "_s + m_datos.periodo.EnPantalla(),
                                     kAnchoErrores),
        LineaCompuesta().Pon(
            1, (u"CONTRIBUYENTE:  "_s + m_datos.docDeclarante.Texto() + u"  "_s + m_datos.nombreDeclarante)
                   .leftJustified(kAnchoContribuyente, u' ')),
        LineaCompuesta().Pon(1, RayaSangrada(kRaya)),
        LineaCompuesta().Pon(1, kSangria + u"DOC SUJETO SERIE NUMERO     DESCRIPCION DEL ERROR  "_s),
        LineaCompuesta().Pon(1, RayaSangrada(kRaya)),
    };
    for (const LineaCompuesta& linea : lineas)
        m_escritor->ImprimeLinea(linea.Texto());
}

void ReporteErrores::Cuerpo() {
    QFile lista(m_datos.rutaLista);
    AbreLista(lista);
    LineasTolerantes lineas(lista);
    while (lineas.Siguiente()) {
        m_escritor->ImprimeLinea(kSangria + DecodificaCualquiera(lineas.Linea()));
        if (++m_errores % kErroresPorPagina == 0)
            Cuadra(u"Sub-Total de Errores:  "_s, kRaya);
    }
}

void ReporteErrores::Cuadra(const QString& rotulo, int anchoRaya) {
    m_escritor->ImprimeLinea(RayaSangrada(anchoRaya));
    m_escritor->ImprimeLinea(kSangria + rotulo + QString::number(m_errores));
    m_escritor->ImprimeLinea(RayaSangrada(anchoRaya));
}

} // namespace xa518
