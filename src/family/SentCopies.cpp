#include "family/SentCopies.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kRectificar = u"--rectificar"_s;

std::optional<CopiaEnviada> LeeUna(Base& base, const ClaveDeclaracion& buscada, const QString& orden) {
    Registros fila = base.Lee(u"SELECT correl, fec_env, control FROM HCAB %1%2"_s.arg(buscada.Condicion(), orden),
                              buscada.Valores());
    if (!fila.Siguiente())
        return std::nullopt;
    ClaveDeclaracion clave = buscada;
    clave.enviada = true;
    clave.correl = fila.Texto(0);
    return CopiaEnviada{.clave = clave, .fecha = fila.Texto(1), .control = fila.Texto(2)};
}

} // namespace

QString CopiaEnviada::Texto() const {
    const QString numero = u"copia %1"_s.arg(clave.correl);
    return fecha.isEmpty() ? numero : u"%1, enviada el %2"_s.arg(numero, fecha);
}

std::optional<CopiaEnviada> UltimaCopia(Base& base, const ClaveDeclaracion& clave) {
    ClaveDeclaracion mes = clave;
    mes.enviada = false;
    return LeeUna(base, mes, u" ORDER BY val(correl) DESC"_s);
}

std::optional<CopiaEnviada> LaCopia(Base& base, const ClaveDeclaracion& enviada) {
    return LeeUna(base, enviada, {});
}

QStringList ArgumentosParaRectificar(const ClaveDeclaracion& enviada) {
    return {kRectificar, enviada.ruc.Texto(), enviada.periodo.Texto(), enviada.correl};
}

std::optional<ClaveDeclaracion> CopiaPorRectificar(const QStringList& argumentos, const QString& formulario) {
    if (argumentos.value(0) != kRectificar)
        return std::nullopt;
    const std::optional<Periodo> periodo = Periodo::DeTabla(argumentos.value(2));
    if (argumentos.size() != 4 || !periodo)
        throw Error(NumeroError::ArgumentoInvalido,
                    u"%1 lleva el RUC, el período (AAAAMM) y el número de la copia."_s.arg(kRectificar));
    return ClaveDeclaracion{.ruc = Ruc(argumentos.at(1)),
                            .periodo = *periodo,
                            .formulario = formulario,
                            .enviada = true,
                            .correl = argumentos.at(3)};
}

} // namespace xa518
