#include "printouts/DeclarationData.h"

#include "data/Base.h"
#include "form518/FormCatalogs.h"
#include "values/Decimal.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCasillaClientes = 501;
constexpr int kClientesMaximos = 100'000'000;

void CargaCasillas(Base& base, DatosDeclaracion& datos) {
    Registros filas = base.Lee(u"SELECT CASILLA, I_VALOR FROM "_s + datos.clave.Tabla(u"DET"_s) + u' ' +
                                   datos.clave.CondicionSinTipo(),
                               datos.clave.Valores());
    while (filas.Siguiente())
        datos.GuardaCasilla(Recorta(filas.Texto(0)).toInt(), filas.Texto(1));
}

bool CargaCabecera(Base& base, DatosDeclaracion& datos) {
    Registros fila = base.Lee(u"SELECT * FROM "_s + datos.clave.Tabla(u"CAB"_s) + u' ' + datos.clave.Condicion(),
                              datos.clave.Valores());
    if (!fila.Siguiente())
        return false;
    datos.bcolibrad = fila.Texto(u"bcolibrad");
    datos.nroCheque = fila.Texto(u"nrocheque");
    datos.efectivo = fila.Texto(u"efectivo");
    // By name: the two kinds of head keep it at different places.
    datos.rectifica = fila.Texto(u"rectifica") == u"1";
    if (datos.clave.enviada) {
        datos.controlDecl = fila.Texto(u"control");
        datos.ordenDecl = fila.Texto(u"norden");
    }
    return true;
}

void CargaNombre(Base& base, DatosDeclaracion& datos) {
    Registros fila =
        base.Lee(u"SELECT NOMBRE FROM CONT WHERE DOC_ID_D = ? AND TIP_DOC_D = 6"_s, {datos.clave.ruc.Texto()});
    if (fila.Siguiente())
        datos.nombreDeclarante = fila.Texto(0);
}

} // namespace

void DatosDeclaracion::GuardaCasilla(int numero, const QString& valor) {
    const bool aparte = numero == 721 || numero == 722 || numero == 790;
    const bool tieneLugar = (numero >= 1 && numero <= 750) || (numero >= 861 && numero <= 999);
    if (tieneLugar && !aparte)
        m_casillas.insert(numero, valor);
}

int DatosDeclaracion::Clientes() const {
    const Decimal clientes = Decimal::Valor(Casilla(kCasillaClientes));
    return static_cast<int>(
        std::clamp(clientes, Decimal(), Decimal::DeEntero(kClientesMaximos)).RedondeaPar(0).Mantisa());
}

std::optional<DatosDeclaracion> CargarCasillas(Base& base, const ClaveDeclaracion& clave) {
    DatosDeclaracion datos;
    datos.clave = clave;
    CargaCasillas(base, datos);
    if (!CargaCabecera(base, datos))
        return std::nullopt;
    CargaNombre(base, datos);
    return datos;
}

Mensaje NoExisteDeclaracion(const ClaveDeclaracion& clave) {
    const QString texto = u"No existe la declaración del RUC %1 por el período %2."_s;
    return {Icono::Critico, texto.arg(clave.ruc.Texto(), clave.periodo.EnPantalla()), {}};
}

NombresDocumento CargarGrilla(Base& base) {
    NombresDocumento nombres;
    Registros filas = base.Lee(u"Select funcion,argumento From param Where numero='044' Order by val(argumento)"_s);
    while (filas.Siguiente()) {
        const QString funcion = filas.Texto(0);
        if (UsosDocumento::kEnInformes.Corta(funcion) == u"1")
            nombres.insert(Recorta(filas.Texto(1)).toInt(), Recorta(TramosDocumento::kCorto.Corta(funcion)).toString());
    }
    return nombres;
}

Veredicto ValidaAnexos(const DatosDeclaracion& datos) {
    if (datos.Clientes() > 0)
        return Veredicto::Bien();
    return Veredicto::Rechaza(
        {Icono::Informacion, u"No existe información de anexos para esta declaración"_s, u"Anexos"_s});
}

} // namespace xa518
