#include "printouts/ChangesReport.h"

#include "platform/Clock.h"
#include "printouts/AnnexLines.h"
#include "values/Dates.h"
#include "values/Format.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoHoja = LineasAnexo::kAncho;
constexpr int kLineasPorPagina = 64;
constexpr int kLineasTitulo = 6;
constexpr int kLineasFijas = 16; ///< titles, rules and the summary

constexpr int kAnchoCifra = 14;
constexpr qsizetype kLargoRazon = 34;

/// Where the columns of amounts end, and where those of texts begin.
constexpr int kFinCobradoAntes = 83;
constexpr int kFinCobradoDespues = 98;
constexpr int kFinPercibidoAntes = 112;
constexpr int kFinPercibidoDespues = 126;
constexpr int kComprobantes = 128;
constexpr int kPagos = 142;

constexpr int kConcepto = 12;
constexpr int kFinAntes = 90;
constexpr int kFinDespues = 115;
constexpr int kFinDiferencia = 140;

QString Monto(Importe monto) {
    return MontoConComas(monto.ADecimal(), kAnchoCifra);
}

QString MontoConSigno(Importe monto) {
    return (monto.Signo() > 0 ? u"+"_s : QString()) + Format(monto, u"###,###,###,##0.00");
}

/// What can't be told by a difference.
QString Diferencia(const CasillaComparada& casilla) {
    return casilla.diferencia.isEmpty() && casilla.Cambia() ? u"cambia"_s : casilla.diferencia;
}

} // namespace

InformeCambios::InformeCambios(const Reloj& reloj, const DatosCambios& datos, EscritorInforme& escritor)
    : m_comparacion(datos.comparacion.get())
    , m_nombres(&datos.nombres)
    , m_escritor(&escritor)
    , m_ahora(reloj.Ahora()) {}

int InformeCambios::TotalPaginas(const Comparacion& comparacion) {
    const qsizetype lineas = kLineasFijas + comparacion.casillas.size() + comparacion.clientes.size();
    return static_cast<int>(lineas / (kLineasPorPagina - kLineasTitulo)) + 1;
}

void InformeCambios::Imprime() {
    m_escritor->PonAncho(kAnchoHoja);
    m_escritor->PonCabecera([this] { Cabecera(); });
    Cabecera();
    Casillas();
    Clientes();
    Resumen();
}

void InformeCambios::Cabecera() {
    const PedidoDeComparacion& pedido = m_comparacion->pedido;
    const ClaveDeclaracion& clave = pedido.copia.clave;
    const QString pagina = Format(qint64{m_escritor->PaginaActual()}, u"##");
    const QString control = pedido.copia.control.isEmpty() ? QString() : u", control "_s + pedido.copia.control;
    for (const LineaCompuesta& linea :
         {LineaCompuesta()
              .PonCentrado(u"QMD 0518 - AGENTES DE PERCEPCION VENTAS INTERNAS"_s, kAnchoHoja)
              .Pon(1, FormatFecha(m_ahora.date(), u"dd/mm/yyyy"))
              .Pon(13, FormatHora(m_ahora.time()))
              .PonHasta(kAnchoHoja, u"Pag:"_s + pagina.rightJustified(6, u' ')),
          LineaCompuesta()
              .PonCentrado(u"QUE CAMBIA FRENTE A LO ENVIADO - PERIODO "_s + clave.periodo.EnPantalla(), kAnchoHoja)
              .PonHasta(kAnchoHoja, u"PER008"_s),
          LineaCompuesta().Pon(1, u"DECLARANTE   : "_s + clave.ruc.Texto() + u"  "_s + pedido.nombre),
          LineaCompuesta().Pon(1, u"FRENTE A     : "_s + pedido.copia.Texto() + control)})
        m_escritor->ImprimeLinea(linea.Texto());
    m_escritor->ImprimeLinea(LineasAnexo::RayaLarga());
}

void InformeCambios::Casillas() {
    m_escritor->ImprimeLinea(LineaCompuesta()
                                 .Pon(1, u" CASILLA"_s)
                                 .Pon(kConcepto, u"CONCEPTO"_s)
                                 .PonHasta(kFinAntes, u"ANTES"_s)
                                 .PonHasta(kFinDespues, u"DESPUES"_s)
                                 .PonHasta(kFinDiferencia, u"DIFERENCIA"_s)
                                 .Texto());
    m_escritor->ImprimeLinea(LineasAnexo::RayaLarga());
    for (const CasillaComparada& casilla : m_comparacion->casillas)
        m_escritor->ImprimeLinea(LineaCompuesta()
                                     .Pon(5, Format(qint64{casilla.casilla}, u"000"))
                                     .Pon(kConcepto, casilla.concepto)
                                     .PonHasta(kFinAntes, casilla.antes)
                                     .PonHasta(kFinDespues, casilla.despues)
                                     .PonHasta(kFinDiferencia, Diferencia(casilla))
                                     .Texto());
    m_escritor->ImprimeLinea(LineasAnexo::RayaLarga());
}

void InformeCambios::Clientes() {
    m_escritor->ImprimeLinea(LineaCompuesta()
                                 .PonHasta(kFinCobradoDespues, u"MONTOS COBRADOS"_s)
                                 .PonHasta(kFinPercibidoDespues, u"PERCEPCIONES"_s)
                                 .Pon(kComprobantes, u"COMPROBANTES"_s)
                                 .Pon(kPagos, u"COMP. PAGO"_s)
                                 .Texto());
    m_escritor->ImprimeLinea(LineaCompuesta()
                                 .Pon(1, u" CLIENTE"_s)
                                 .Pon(11, u"DOC."_s)
                                 .Pon(18, u"NUMERO"_s)
                                 .Pon(34, u"NOMBRE"_s)
                                 .PonHasta(kFinCobradoAntes, u"ANTES"_s)
                                 .PonHasta(kFinCobradoDespues, u"DESPUES"_s)
                                 .PonHasta(kFinPercibidoAntes, u"ANTES"_s)
                                 .PonHasta(kFinPercibidoDespues, u"DESPUES"_s)
                                 .Pon(kComprobantes, u"(+) (-) (~)"_s)
                                 .Pon(kPagos, u"(+) (-) (~)"_s)
                                 .Texto());
    m_escritor->ImprimeLinea(LineasAnexo::RayaLarga());
    for (const ClienteComparado& cliente : m_comparacion->clientes)
        Cliente(cliente);
    if (m_comparacion->clientes.isEmpty())
        m_escritor->ImprimeLinea(u" Ningún cliente cambia."_s);
    m_escritor->ImprimeLinea(LineasAnexo::RayaLarga());
}

void InformeCambios::Cliente(const ClienteComparado& cliente) {
    m_escritor->ImprimeLinea(LineaCompuesta()
                                 .Pon(2, Palabra(cliente.clase))
                                 .Pon(11, m_nombres->value(cliente.tipoDoc).left(6))
                                 .Pon(18, cliente.numero)
                                 .Pon(34, cliente.nombre.left(kLargoRazon))
                                 .PonHasta(kFinCobradoAntes, Monto(cliente.antes.base))
                                 .PonHasta(kFinCobradoDespues, Monto(cliente.despues.base))
                                 .PonHasta(kFinPercibidoAntes, Monto(cliente.antes.percepcion))
                                 .PonHasta(kFinPercibidoDespues, Monto(cliente.despues.percepcion))
                                 .Pon(kComprobantes, cliente.comprobantes.Texto())
                                 .Pon(kPagos, cliente.pagos.Texto())
                                 .Texto());
}

void InformeCambios::Resumen() {
    for (const ClaseDeCambio clase : {ClaseDeCambio::Agregado, ClaseDeCambio::Quitado, ClaseDeCambio::Cambiado}) {
        const Comparacion::Resumen resumen = m_comparacion->De(clase);
        m_escritor->ImprimeLinea(LineaCompuesta()
                                     .Pon(2, Palabra(clase) + u"s:"_s)
                                     .PonHasta(24, Format(qint64{resumen.clientes}, u"###,##0"))
                                     .PonHasta(kFinCobradoDespues, MontoConSigno(resumen.diferencia.base))
                                     .PonHasta(kFinPercibidoDespues, MontoConSigno(resumen.diferencia.percepcion))
                                     .Texto());
    }
}

} // namespace xa518
