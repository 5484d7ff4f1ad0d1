#include "form518/Comparison.h"

#include "data/Base.h"
#include "form518/ComparedRows.h"
#include "form518/DetailColumns.h"
#include "values/Format.h"
#include "values/Progress.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

enum class ClaseDeCasilla { Monto, Respuesta, FormaDePago, Banco, Texto };

struct CasillaConocida {
    int numero;
    ClaseDeCasilla clase;
    QStringView concepto;
};

/// What people know of a declaration, in the order in which they look for it. The other boxes say the same in another
/// way, or nothing that anybody declares.
constexpr CasillaConocida kCasillas[] = {
    {401, ClaseDeCasilla::Monto, u"Percepciones efectuadas"},
    {402, ClaseDeCasilla::Monto, u"Pagos previos (efectivo, cheque, doc. val.)"},
    {403, ClaseDeCasilla::Monto, u"Percepción a pagar"},
    {404, ClaseDeCasilla::Monto, u"Interés moratorio"},
    {405, ClaseDeCasilla::Monto, u"Total deuda tributaria"},
    {410, ClaseDeCasilla::Monto, u"Importe a pagar"},
    {501, ClaseDeCasilla::Monto, u"Sujetos de percepción"},
    {502, ClaseDeCasilla::Monto, u"Total de los montos cobrados"},
    {503, ClaseDeCasilla::Monto, u"Total de las percepciones"},
    {510, ClaseDeCasilla::Monto, u"Comprobantes de percepción"},
    {511, ClaseDeCasilla::Monto, u"Comprobantes de percepción: montos cobrados"},
    {512, ClaseDeCasilla::Monto, u"Comprobantes de percepción: percepciones"},
    {513, ClaseDeCasilla::Monto, u"Ventas al contado"},
    {514, ClaseDeCasilla::Monto, u"Ventas al contado: montos cobrados"},
    {515, ClaseDeCasilla::Monto, u"Ventas al contado: percepciones"},
    {516, ClaseDeCasilla::Monto, u"Comprobantes de pago"},
    {517, ClaseDeCasilla::Monto, u"Comprobantes de pago: montos"},
    {871, ClaseDeCasilla::Respuesta, u"Rectifica o sustituye a otra"},
    {999, ClaseDeCasilla::FormaDePago, u"Forma de pago"},
    {15, ClaseDeCasilla::Banco, u"Banco"},
    {12, ClaseDeCasilla::Texto, u"Número de cheque"},
};

/// The whole number that a box holds; the prior payments are stored and shown below 0 as well as above it.
std::optional<Decimal> MontoDe(int casilla, const QString& valor) {
    const std::optional<Decimal> leido = Decimal::Lee(Format(valor, u"###########0"));
    return leido && casilla == 402 ? leido->Absoluto() : leido;
}

QString Mostrada(const CasillaConocida& casilla, const QString& valor) {
    switch (casilla.clase) {
    case ClaseDeCasilla::Monto:
        if (const std::optional<Decimal> monto = MontoDe(casilla.numero, valor))
            return Format(*monto, u"###,###,###,##0");
        return valor;
    case ClaseDeCasilla::Respuesta: return valor == u"1" ? u"Sí"_s : valor == u"0" ? u"No"_s : QString();
    case ClaseDeCasilla::FormaDePago: return valor == u"E" ? u"Efectivo"_s : valor == u"C" ? u"Cheque"_s : QString();
    case ClaseDeCasilla::Banco: return valor == u"XX" ? QString() : Format(valor, u"00");
    case ClaseDeCasilla::Texto: break;
    }
    return valor;
}

QString ConSigno(const Decimal& monto, QStringView mascara) {
    return (monto.Signo() > 0 ? u"+"_s : QString()) + Format(monto, mascara);
}

CasillaComparada ComparaCasilla(const CasillaConocida& casilla, const QString& antes, const QString& despues) {
    CasillaComparada comparada{.casilla = casilla.numero,
                               .concepto = casilla.concepto.toString(),
                               .antes = Mostrada(casilla, antes),
                               .despues = Mostrada(casilla, despues),
                               .diferencia = {}};
    if (casilla.clase == ClaseDeCasilla::Monto && comparada.Cambia()) {
        const Decimal menos = MontoDe(casilla.numero, antes).value_or(Decimal()).Opuesto();
        comparada.diferencia =
            ConSigno(MontoDe(casilla.numero, despues).value_or(Decimal()) + menos, u"###,###,###,##0");
    }
    return comparada;
}

ValoresDeCasillas CasillasGuardadas(Base& base, const ClaveDeclaracion& clave) {
    ValoresDeCasillas valores;
    Registros filas = base.Lee(
        u"SELECT CASILLA, I_VALOR FROM %1 %2"_s.arg(clave.Tabla(u"DET"_s), clave.CondicionSinTipo()), clave.Valores());
    while (filas.Siguiente())
        valores.insert(Recorta(filas.Texto(0)).toInt(), Recorta(filas.Texto(1)).toString());
    return valores;
}

/// Boxes 510 to 517 as a save would count them.
void PonSumasDelTrabajo(Base& base, ValoresDeCasillas& valores) {
    const QString montos = SumaDe(DatoComprobante::MontoBase) + u", "_s + SumaDe(DatoComprobante::Percepcion);
    const QString tipo = ColumnaDe(DatoComprobante::TipCp);
    const QString sumas[] = {u"%1 FROM TMPF518PDET WHERE %2 = ''"_s.arg(montos, tipo),
                             u"%1 FROM TMPF518PDET WHERE %2 <> ''"_s.arg(montos, tipo),
                             SumaDe(DatoPago::Monto) + u" FROM TMPF518PDETCP"_s};
    int casilla = 510;
    for (const QString& suma : sumas) {
        Registros fila = base.Lee(u"SELECT count(*), "_s + suma);
        if (!fila.Siguiente())
            continue;
        for (int i = 0; i < fila.Columnas(); ++i)
            valores.insert(casilla++, fila.EsNulo(i) ? u"0"_s : Format(fila.Texto(i), u"##############0"));
    }
}

ValoresDeCasillas CasillasDeDespues(Base& base, const PedidoDeComparacion& pedido) {
    if (!pedido.abierta) {
        ClaveDeclaracion registrada = pedido.copia.clave;
        registrada.enviada = false;
        return CasillasGuardadas(base, registrada);
    }
    ValoresDeCasillas valores = *pedido.abierta;
    PonSumasDelTrabajo(base, valores);
    return valores;
}

LadoComparado LadoDeDespues(const PedidoDeComparacion& pedido) {
    if (pedido.abierta)
        return LadoComparado::DelTrabajo();
    ClaveDeclaracion registrada = pedido.copia.clave;
    registrada.enviada = false;
    return LadoComparado::De(registrada);
}

/// The clients of both sides, and those of vouchers that no client's row goes with: what is stored counts.
QList<DocumentoDeCliente> ClientesDe(const ClientesLeidos& antes, const ClientesLeidos& despues,
                                     const QList<MovimientosPorCliente>& movimientos) {
    QList<DocumentoDeCliente> clientes = antes.keys() + despues.keys();
    for (const MovimientosPorCliente& unos : movimientos)
        clientes += unos.keys();
    std::sort(clientes.begin(), clientes.end());
    clientes.erase(std::unique(clientes.begin(), clientes.end()), clientes.end());
    return clientes;
}

ClaseDeCambio ClaseDe(bool estaba, bool esta) {
    if (estaba == esta)
        return ClaseDeCambio::Cambiado;
    return esta ? ClaseDeCambio::Agregado : ClaseDeCambio::Quitado;
}

QList<ClienteComparado> ComparaClientes(const ClientesLeidos& antes, const ClientesLeidos& despues,
                                        const MovimientosPorCliente& comprobantes, const MovimientosPorCliente& pagos) {
    QList<ClienteComparado> distintos;
    for (const DocumentoDeCliente& documento : ClientesDe(antes, despues, {comprobantes, pagos})) {
        const bool estaba = antes.contains(documento);
        const bool esta = despues.contains(documento);
        const ClienteLeido anterior = antes.value(documento);
        const ClienteLeido actual = despues.value(documento);
        const ClienteComparado cliente{.clase = ClaseDe(estaba, esta),
                                       .tipoDoc = documento.first,
                                       .numero = documento.second,
                                       .nombre = esta ? actual.nombre : anterior.nombre,
                                       .otroNombre = estaba && esta && anterior.nombre != actual.nombre,
                                       .antes = anterior.sumas,
                                       .despues = actual.sumas,
                                       .comprobantes = comprobantes.value(documento),
                                       .pagos = pagos.value(documento)};
        if (estaba != esta || cliente.otroNombre || cliente.antes != cliente.despues || cliente.comprobantes.Hay() ||
            cliente.pagos.Hay())
            distintos.append(cliente);
    }
    return distintos;
}

} // namespace

QString Movimientos::Texto() const {
    QStringList partes;
    for (const auto& [signo, cuantos] :
         {std::pair(u'+', agregados), std::pair(u'-', quitados), std::pair(u'~', cambiados)})
        if (cuantos > 0)
            partes.append(signo + QString::number(cuantos));
    return partes.join(u' ');
}

Importe Resta(Importe despues, Importe antes) {
    return Importe::De(despues.ADecimal() + antes.ADecimal().Opuesto());
}

QString Palabra(ClaseDeCambio clase) {
    switch (clase) {
    case ClaseDeCambio::Agregado: return u"Agregado"_s;
    case ClaseDeCambio::Quitado: return u"Quitado"_s;
    case ClaseDeCambio::Cambiado: break;
    }
    return u"Cambiado"_s;
}

bool Comparacion::HayCambios() const {
    return !clientes.isEmpty() ||
           std::any_of(casillas.cbegin(), casillas.cend(), [](const CasillaComparada& una) { return una.Cambia(); });
}

Comparacion::Resumen Comparacion::De(ClaseDeCambio clase) const {
    Resumen resumen;
    for (const ClienteComparado& cliente : clientes) {
        if (cliente.clase != clase)
            continue;
        ++resumen.clientes;
        resumen.diferencia.base += Resta(cliente.despues.base, cliente.antes.base);
        resumen.diferencia.percepcion += Resta(cliente.despues.percepcion, cliente.antes.percepcion);
    }
    return resumen;
}

Comparacion Compara(Base& base, const PedidoDeComparacion& pedido, Avance& avance) {
    constexpr int kPasos = 5;
    int paso = 0;
    const auto sigue = [&] { avance.Va(paso++, kPasos); };
    const LadoComparado antes = LadoComparado::De(pedido.copia.clave);
    const LadoComparado despues = LadoDeDespues(pedido);
    Comparacion comparacion{.pedido = pedido, .casillas = {}, .clientes = {}};
    sigue();
    const ValoresDeCasillas guardadas = CasillasGuardadas(base, pedido.copia.clave);
    const ValoresDeCasillas actuales = CasillasDeDespues(base, pedido);
    for (const CasillaConocida& casilla : kCasillas)
        comparacion.casillas.append(
            ComparaCasilla(casilla, guardadas.value(casilla.numero), actuales.value(casilla.numero)));
    sigue();
    const MovimientosPorCliente comprobantes =
        ComparaFilas(base, antes.comprobantes, despues.comprobantes, ClaveDeComprobantes().size());
    sigue();
    const MovimientosPorCliente pagos = ComparaFilas(base, antes.pagos, despues.pagos, ClaveDePagos().size());
    sigue();
    comparacion.clientes =
        ComparaClientes(LeeClientes(base, antes.clientes), LeeClientes(base, despues.clientes), comprobantes, pagos);
    sigue();
    return comparacion;
}

} // namespace xa518
