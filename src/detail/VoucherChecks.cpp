#include "detail/VoucherChecks.h"

#include "detail/VoucherDates.h"
#include "form518/LawBands.h"
#include "values/Dates.h"
#include "values/Format.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kSoloPrimera = u"No se permite letras desde la segunda a la cuarta posición en el número de serie."_s;
constexpr int kLargoSerie = 4;

/// The verdicts of a list of checks that stops at the first fault.
template <typename... Chequeos>
VeredictoComprobante Primero(const Chequeos&... chequeos) {
    VeredictoComprobante veredicto = Veredicto::Bien();
    (void)((veredicto = chequeos(), static_cast<bool>(veredicto)) && ...);
    return veredicto;
}

VeredictoComprobante CriticoSi(bool falta, const QString& texto, CampoComprobante campo) {
    return VeredictoComprobante::CriticoSi(falta, texto, campo);
}

/// As the utility object's message shows.
VeredictoComprobante Advierte(const QString& texto) {
    return VeredictoComprobante::Rechaza({Icono::Exclamacion, texto, {}}, CampoComprobante::Serie);
}

bool EstaVacio(const QString& texto) {
    return Recorta(texto).isEmpty();
}

/// Anything but a day of the calendar counts as before the change: an underscore would sort behind the digits.
bool DesdeElCambio(const QString& fecha) {
    const std::optional<QDate> dia = LeeFecha(fecha);
    return dia && AdmiteSerieConLetra(*dia);
}

bool EmpiezaBien(QStringView serie) {
    return !serie.isEmpty() && (EsLetra(serie.front()) || EsDigito(serie.front()));
}

/// The blank that this text lacks after the date stands in the payment voucher's. Wanted: both are quoted so.
QString SoloLetrasODigitos(const QString& separador) {
    return u"Desde el 2010/07/19"_s + separador +
           u"sólo se permite letras o dígitos en la primera posición del número de serie"_s;
}

VeredictoComprobante ValidaSerieConLetra(const QString& serie) {
    if (!EmpiezaBien(serie))
        return Advierte(SoloLetrasODigitos({}));
    for (int posicion = 1; posicion < kLargoSerie; ++posicion) {
        if (posicion >= serie.size())
            return Advierte(u"Debe registrar correctamente el número de serie."_s);
        if (EsLetra(serie[posicion]))
            return Advierte(kSoloPrimera);
    }
    return Veredicto::Bien();
}

VeredictoComprobante ValidaSerie(const DatosComprobante& datos) {
    if (DesdeElCambio(datos.fecha))
        return ValidaSerieConLetra(datos.serie);
    return CriticoSi(!EsDigito(datos.serie.front()), u"El número de serie debe ser numérico"_s,
                     CampoComprobante::Serie);
}

VeredictoComprobante ValidaIdentidad(const DatosComprobante& datos) {
    return Primero(
        [&] {
            return CriticoSi(datos.contado && datos.tipoCp.isEmpty(), u"Ingrese el tipo de comprobante de pago"_s,
                             CampoComprobante::Tipo);
        },
        [&] { return CriticoSi(EstaVacio(datos.serie), u"Ingrese la serie"_s, CampoComprobante::Serie); },
        [&] {
            return CriticoSi(EstaVacio(datos.numero), u"Ingrese el número del documento"_s, CampoComprobante::Numero);
        },
        [&] {
            return CriticoSi(SignoDelValor(datos.numero) == 0,
                             u"El número de comprobante de percepción no puede ser cero"_s, CampoComprobante::Numero);
        },
        [&] { return ValidaSerie(datos); });
}

VeredictoComprobante ValidaSerieDePago(const DatosPago& datos) {
    const QString texto = u"El número de serie del comprobante de pago no es válido"_s;
    const bool soloLetrasYDigitos = ObjetoUtil::ValidaTextoDoc(datos.serie);
    const bool nueva = DesdeElCambio(datos.fecha);
    const QStringView recortada = Recorta(datos.serie);
    return Primero(
        [&] { return CriticoSi(AdmiteLetras(datos.tipo) && !soloLetrasYDigitos, texto, CampoComprobante::Serie); },
        // Padding leaves a series with letters alone, so that "A12" ends here. Wanted: only its
        // owner knows where the zero goes.
        [&] { return CriticoSi(recortada.size() != kLargoSerie, texto, CampoComprobante::Serie); },
        [&] { return CriticoSi(!nueva && !soloLetrasYDigitos, texto, CampoComprobante::Serie); },
        [&] {
            return nueva && !EmpiezaBien(datos.serie) ? Advierte(SoloLetrasODigitos(u" "_s))
                                                      : VeredictoComprobante(Veredicto::Bien());
        },
        [&] {
            const bool otraLetra = std::any_of(recortada.begin() + 1, recortada.end(), EsLetra);
            return nueva && otraLetra ? Advierte(kSoloPrimera) : VeredictoComprobante(Veredicto::Bien());
        });
}

VeredictoComprobante ValidaIdentidad(const DatosPago& datos) {
    return Primero(
        [&] { return CriticoSi(datos.tipo.isEmpty(), u"Ingrese el tipo de documento"_s, CampoComprobante::Tipo); },
        [&] { return CriticoSi(EstaVacio(datos.serie), u"Ingrese la serie"_s, CampoComprobante::Serie); },
        [&] {
            return CriticoSi(EstaVacio(datos.numero), u"Ingrese el número del documento"_s, CampoComprobante::Numero);
        },
        [&] {
            return CriticoSi(SignoDelValor(datos.numero) == 0, u"El número de comprobante de pago no puede ser cero."_s,
                             CampoComprobante::Numero);
        },
        [&] {
            return CriticoSi(EsNumericoCero(datos.serie), u"El número de serie no puede ser cero."_s,
                             CampoComprobante::Serie);
        });
}

/// A lone point has the value 0, so that the last test is never reached. Wanted: the order is the system's.
VeredictoComprobante ValidaMonto(const QString& monto) {
    constexpr auto kMonto = CampoComprobante::Monto;
    const QString falta = u"Ingrese el valor total del comprobante de pago"_s;
    if (monto.isEmpty())
        return VeredictoComprobante::Critico(falta, kMonto);
    const QString sinGrupos = Format(monto, u"###########0.###0");
    if (Decimal::Valor(sinGrupos) < Decimal::Valor(u"0.01"))
        return VeredictoComprobante::Critico(u"Ingrese valor total del comprobante de pago mayor a cero."_s, kMonto);
    return CriticoSi(monto == u".", falta, kMonto);
}

/// "1" and "0" for the answers, `abierta` for none.
QString Codigo(const Contestacion& respuesta, const QString& abierta) {
    if (!respuesta)
        return abierta;
    return *respuesta ? u"1"_s : u"0"_s;
}

} // namespace

bool AdmiteLetras(QStringView tipo) {
    return tipo == u"01" || tipo == u"03" || tipo == u"07" || tipo == u"08";
}

VeredictoComprobante ValidaGrabar(const DatosComprobante& datos, Periodo declarado, const QDate& hoy) {
    return Primero([&] { return ValidaIdentidad(datos); }, [&] { return ValidaFechaEscrita(datos.fecha); },
                   [&] { return ValidaFecha(datos.fecha, declarado, hoy); },
                   [&] {
                       return CriticoSi(datos.monto.isEmpty() || datos.monto == u".", u"Ingrese el Monto cobrado"_s,
                                        CampoComprobante::Monto);
                   },
                   [&] {
                       return CriticoSi(datos.exigeListado && !datos.respuestas.listado,
                                        u"Conteste si su cliente figura en el listado publicado por ZOLMA"_s,
                                        CampoComprobante::Listado);
                   });
}

std::optional<VeredictoComprobante> ValidaGrabar(const DatosPago& datos, const ChequeoDeFecha& fechaOrigen) {
    const VeredictoComprobante antes =
        Primero([&] { return ValidaIdentidad(datos); }, [&] { return ValidaFechaEscrita(datos.fecha); },
                [&] {
                    return CriticoSi(!ObjetoUtil::FechaEnRango(datos.fecha, u"01/01/1900", u"01/01/2500"),
                                     u"Debe ingresar una fecha válida."_s, CampoComprobante::Fecha);
                });
    if (!antes)
        return antes;
    std::optional<VeredictoComprobante> fecha = fechaOrigen();
    if (!fecha || !*fecha)
        return fecha;
    return Primero([&] { return ValidaSerieDePago(datos); }, [&] { return ValidaMonto(datos.monto); });
}

CamposComprobante CamposDe(const DatosComprobante& datos, const QString& percepcion, const QString& tasa) {
    const Respuestas& r = datos.respuestas;
    return {.cpFact = Codigo(r.cpFact, {}),
            .listaClie = Codigo(r.listado, u"9"_s),
            .medPago = Codigo(r.venta, u"9"_s),
            .fecha = datos.fecha,
            .base = MontoEscrito(Format(datos.monto, u"############.#0")),
            .percepcion = Importe::Lee(percepcion),
            .tasa = tasa};
}

} // namespace xa518
