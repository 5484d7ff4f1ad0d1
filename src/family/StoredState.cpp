#include "family/StoredState.h"

#include "data/Base.h"
#include "family/ChangeLog.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The head of a row that was never summed counts as there all the same.
QString SumaDeCabecera(Base& base, const ClaveDeclaracion& clave) {
    Registros fila =
        base.Lee(u"SELECT cNumero FROM %1 %2"_s.arg(clave.Tabla(u"CAB"_s), clave.Condicion()), clave.Valores());
    return fila.Siguiente() ? u'#' + fila.Texto(0) : QString();
}

QString MarcaDe(Base& base, const ClaveDeclaracion& clave) {
    const std::optional<Asiento> ultimo = Bitacora(base).UltimoDe(clave);
    return ultimo ? ultimo->marca : QString();
}

QString Participio(const Asiento& asiento) {
    if (asiento.suceso == CodigoDe(Suceso::Eliminacion))
        return u"eliminada"_s;
    if (asiento.suceso == CodigoDe(Suceso::Envio))
        return u"enviada"_s;
    if (asiento.suceso == CodigoDe(Suceso::NumeroDeOrden))
        return u"cambiada en su número de orden"_s;
    return u"grabada"_s;
}

} // namespace

EstadoGuardado EstadoGuardado::De(Base& base, const ClaveDeclaracion& clave) {
    EstadoGuardado estado;
    estado.m_suma = SumaDeCabecera(base, clave);
    estado.m_marca = MarcaDe(base, clave);
    return estado;
}

QString EstadoGuardado::Texto() const {
    return m_marca + u' ' + m_suma;
}

EstadoGuardado EstadoGuardado::DeTexto(const QString& texto) {
    EstadoGuardado estado;
    estado.m_marca = texto.section(u' ', 0, 0);
    const QString suma = texto.section(u' ', 1);
    if (!suma.isEmpty()) // one that is there begins with its sign
        estado.m_suma = suma;
    return estado;
}

Veredicto ExigeSinCambios(Base& base, const ClaveDeclaracion& clave, const EstadoGuardado& conocido) {
    const EstadoGuardado ahora = EstadoGuardado::De(base, clave);
    if (ahora == conocido)
        return Veredicto::Bien();
    const QString cual = u"La declaración %1 de %2"_s.arg(clave.formulario, clave.periodo.EnPantalla());
    const QString queda = u"\n\nNo se ha grabado nada; lo que ingresó sigue en la pantalla."_s;
    if (!ahora.MismaMarca(conocido)) {
        const std::optional<Asiento> ultimo = Bitacora(base).UltimoDe(clave);
        return Veredicto::Critico(
            u"%1 fue %2 por %3, mientras estaba abierta aquí."_s.arg(cual, Participio(*ultimo), ultimo->Quien()) +
            queda);
    }
    return Veredicto::Critico((ahora.Existe() ? u"%1 fue cambiada por otro medio mientras estaba abierta aquí."_s
                                              : u"%1 ya no está: fue quitada por otro medio mientras estaba abierta"
                                                " aquí."_s)
                                  .arg(cual) +
                              queda);
}

} // namespace xa518
