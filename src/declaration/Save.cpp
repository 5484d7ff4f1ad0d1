#include "declaration/Save.h"

#include "data/Base.h"
#include "data/Retry.h"
#include "data/Transaction.h"
#include "declaration/Consistency.h"
#include "declaration/StoredBoxes.h"
#include "form518/FormCatalogs.h"
#include "form518/SavedDetail.h"
#include "values/Dates.h"
#include "values/Format.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The version of the form, whatever the program's own is.
const QString kVersionFormulario = u"1.5"_s;
const QString kUnBlanco = u" "_s;

/// Of the two ways of payment the unused one's columns hold a blank or the empty text. Without a choice all four stay
/// as they were, and the declaration is saved with inconsistencies.
void PonPago(Registro& cabecera, const Pago& pago) {
    const QString importe = Format(pago.importe, u"#########0");
    if (pago.EsCheque())
        cabecera.Pon(u"bcolibrad", pago.banco)
            .Pon(u"nrocheque", pago.numeroCheque)
            .Pon(u"cheque", importe)
            .Pon(u"efectivo", u""_s);
    else if (pago.EsEfectivo())
        cabecera.Pon(u"bcolibrad", kUnBlanco)
            .Pon(u"nrocheque", kUnBlanco)
            .Pon(u"cheque", u""_s)
            .Pon(u"efectivo", importe);
}

void GrabaLaCabecera(Base& base, const Declaracion& declaracion, int estado, const QDate& hoy) {
    GrabaCabecera(base, declaracion.clave, [&](Registro& cabecera) {
        cabecera.Pon(u"fec_pro", FormatFecha(hoy, u"dd/mm/yyyy"));
        PonPago(cabecera, declaracion.pago);
        cabecera.Pon(u"estado", estado).Pon(u"rectifica", Digito(declaracion.rectifica));
    });
}

/// `valor` of a catalogue's rows: their running numbers, a missing one counting 0.
Decimal SumaCorrelativos(Base& base, const QString& catalogo) {
    Registros filas = base.Lee(u"SELECT * FROM PARAM WHERE numero=?"_s, {catalogo});
    const int columna = filas.Columna(u"correl_param");
    Decimal suma;
    while (filas.Siguiente())
        suma = suma + Decimal::Valor(filas.Texto(columna));
    return suma;
}

QString CatalogosDeControl(Base& base, const QString& formulario) {
    Registros filas = base.Lee(u"SELECT * FROM PARAM WHERE numero='981' AND %1=? ORDER BY %2"_s.arg(
                                   TramosControl::kFormulario.Sql(u"argumento"), base.NumeroDeFila(u"PARAM"_s)),
                               {formulario});
    return filas.Siguiente() ? Recorta(filas.Texto(u"Funcion")).toString() : QString();
}

/// Rounds n / 4 to the nearest whole number, ties to even.
int CuartosRedondeados(qsizetype n) {
    const auto cuartos = static_cast<int>(n / 4);
    const auto resto = static_cast<int>(n % 4);
    return resto > 2 || (resto == 2 && cuartos % 2 != 0) ? cuartos + 1 : cuartos;
}

void GrabaCasillas(Base& base, const Declaracion& declaracion, const QString& sumaDeControl) {
    const ClaveDeclaracion& clave = declaracion.clave;
    const Pago& pago = declaracion.pago;
    const auto entero = [](const std::optional<Importe>& total) {
        return total ? Format(*total, u"##############0") : QString();
    };
    base.Ejecuta(u"DELETE * FROM DET WHERE DOC_ID_D=? AND PERIODO=? AND FORMULARIO=?"_s, clave.Valores());
    for (const int casilla : kCasillasMonto)
        GrabaCasilla(base, clave, {QString::number(casilla), declaracion.montos.Texto(casilla)});

    const auto graba = [&](const QString& casilla, const QString& valor) {
        GrabaCasilla(base, clave, {casilla, valor});
    };
    graba(u"002"_s, clave.ruc.Texto());
    graba(u"012"_s, pago.numeroCheque);
    graba(u"015"_s, pago.ConBanco() ? pago.banco : QString());
    graba(u"007"_s, clave.periodo.Texto());
    graba(u"721"_s, kVersionFormulario);
    graba(u"722"_s, sumaDeControl);
    graba(u"502"_s, entero(declaracion.base));
    graba(u"503"_s, entero(declaracion.percepcion));
    graba(u"501"_s, QString::number(declaracion.clientes));
    GrabaCasillaParam(base, clave);
    graba(u"871"_s, Digito(declaracion.rectifica));
    graba(u"005"_s, Digito(declaracion.rectifica));
    graba(u"999"_s, Letra(pago.forma));
    graba(u"599"_s, Letra(pago.forma));
}

/// Boxes 510 to 517: count, amounts and perceptions of each saved detail table; the last has no perceptions.
void GrabaSumas(Base& base, const ClaveDeclaracion& clave) {
    int casilla = 510;
    for (const QString& tabla : {u"F518PDET"_s, u"F518PDETVC"_s, u"F518PDETCP"_s}) {
        const SumasDetalle sumas = Get_Data(base, tabla, clave);
        for (const QString& valor : {sumas.cantidad, sumas.base, sumas.percepcion}) {
            if (casilla <= 517)
                GrabaCasilla(base, clave, {QString::number(casilla), Format(valor, u"##############0")});
            ++casilla;
        }
    }
}

QList<Mensaje> MensajesDe(const Declaracion& declaracion, int estado) {
    QList<Mensaje> mensajes;
    if (const std::optional<Mensaje> aviso = AvisoDeImporte(declaracion))
        mensajes.append(*aviso);
    // The slips of the first text and the exclamation icon of the second are wanted: users and manuals know them so.
    const QString texto = estado == 9 ? u"La infomación de la declaración fue grabada con inconsistencias. En estas "
                                        "condiciones no podra ser enviada a ZOLMA."_s
                                      : u"Toda la información de la declaración fue grabada satisfactoriamente."_s;
    mensajes.append({Icono::Exclamacion, texto, {}});
    return mensajes;
}

/// Where several save at once, another one's save of the same declaration is waited for: what is read behind this is
/// what that one left.
void EsperaLaCabecera(Base& base, const ClaveDeclaracion& clave) {
    if (base.LosPuestos() != nullptr)
        base.Ejecuta(u"UPDATE CAB SET estado = estado "_s + clave.Condicion(), clave.Valores());
}

/// One try.
ResultadoGrabacion Graba(Base& base, const Declaracion& declaracion, const EstadoGuardado& conocido,
                         const Firma& firma) {
    const ClaveDeclaracion& clave = declaracion.clave;
    const int estado = Inconsistencias(declaracion).isEmpty() ? 0 : 9;
    Transaccion transaccion = base.Comienza(Turno::Propio);
    EsperaLaCabecera(base, clave);
    if (Veredicto veredicto = ExigeSinCambios(base, clave, conocido); !veredicto)
        return {.veredicto = std::move(veredicto)};
    const QString antes = CasillasEnLineas(base, clave);
    GrabaLaCabecera(base, declaracion, estado, firma.momento.date());
    GrabaCasillas(base, declaracion, SumaDeControl(base, clave.formulario));
    GrabaDetalle(base, clave);
    GrabaSumas(base, clave);
    Bitacora bitacora(base);
    ResultadoGrabacion grabacion{
        .estado = estado, .mensajes = MensajesDe(declaracion, estado), .casillas = CasillasGuardadas(base, clave)};
    const QString marca = bitacora.Anota(
        firma, {.suceso = Suceso::Grabacion, .clave = clave, .antes = antes, .despues = EnLineas(grabacion.casillas)});
    grabacion.guardado = EstadoGuardado::De(base, clave);
    bitacora.Confirma(transaccion, marca);
    return grabacion;
}

} // namespace

QString SumaDeControl(Base& base, const QString& formulario) {
    const QString catalogos = CatalogosDeControl(base, formulario);
    Importe suma;
    for (int i = 0; i < CuartosRedondeados(catalogos.size() + 1); ++i) {
        const QString catalogo = TramosControl::Catalogo(i).Corta(catalogos).toString();
        suma += Importe::De(Decimal::Valor(catalogo) * SumaCorrelativos(base, catalogo));
    }
    return suma.Texto();
}

ResultadoGrabacion GrabaDeclaracion(Base& base, const Declaracion& declaracion, const EstadoGuardado& conocido,
                                    const Firma& firma) {
    return ConReintentos([&] { return Graba(base, declaracion, conocido, firma); });
}

} // namespace xa518
