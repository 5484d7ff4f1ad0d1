#include "family/StoredDeclaration.h"

#include "data/Base.h"
#include "data/RecordChecksum.h"
#include "data/Retry.h"
#include "data/Transaction.h"
#include "family/ChangeLog.h"
#include "family/DeclarationKey.h"
#include "values/Format.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A stored row and where it stands, or one that is new with its key.
class FilaDeTabla {
  public:
    FilaDeTabla(Base& base, const TablaDeDeclaracion& tabla, QString condicion, QVariantList valores)
        : m_base(&base)
        , m_tabla(&tabla)
        , m_condicion(std::move(condicion))
        , m_valores(std::move(valores))
        , m_guardada(base.Busca(tabla.nombre, m_condicion, m_valores)) {}

    [[nodiscard]] Registro Empieza(const ClaveDeclaracion& clave) const {
        Registro fila = m_guardada.value_or(Registro(m_base->Describe(m_tabla->nombre)));
        fila.Pon(u"Doc_id_d", clave.ruc.Texto())
            .Pon(u"tip_doc_d", 6)
            .Pon(u"periodo", clave.periodo.Texto())
            .Pon(u"Formulario", clave.formulario);
        return fila;
    }

    void Escribe(Registro fila) const {
        PonChecksum(fila, m_tabla->numericas);
        if (m_guardada)
            m_base->Actualiza(fila, m_condicion, m_valores);
        else
            m_base->Agrega(fila);
    }

  private:
    Base* m_base;
    const TablaDeDeclaracion* m_tabla;
    QString m_condicion;
    QVariantList m_valores;
    std::optional<Registro> m_guardada;
};

QString ValorGuardado(const ReglaDeCasillas& regla, const CasillaGuardada& una) {
    const QString recortado = Recorta(una.valor).toString();
    return regla.talCual.contains(una.casilla) ? recortado : Format(recortado, u"###########0");
}

} // namespace

void GrabaCabecera(Base& base, const ClaveDeclaracion& clave, const std::function<void(Registro&)>& llena) {
    const FilaDeTabla lugar(base, kTablaCabecera, clave.Condicion(), clave.Valores());
    Registro cabecera = lugar.Empieza(clave);
    llena(cabecera);
    lugar.Escribe(std::move(cabecera));
}

void GrabaCasilla(Base& base, const ReglaDeCasillas& regla, const ClaveDeclaracion& clave, const CasillaGuardada& una) {
    if (Recorta(una.valor).isEmpty() || clave.ruc.EstaVacio())
        return;
    const FilaDeTabla lugar(base, kTablaCasillas, clave.CondicionSinTipo() + u" AND CASILLA=?"_s,
                            clave.Valores() << una.casilla);
    Registro fila = lugar.Empieza(clave);
    fila.Pon(u"Casilla", una.casilla)
        .Pon(u"i_valor", ValorGuardado(regla, una))
        .Pon(u"idcasilla", regla.idCasilla.value(una.casilla, u"01"_s));
    lugar.Escribe(std::move(fila));
}

QList<CasillaGuardada> CasillasGuardadas(Base& base, const ClaveDeclaracion& clave) {
    Registros filas = base.Lee(
        u"SELECT Casilla, i_valor FROM %1 %2 ORDER BY Casilla"_s.arg(clave.Tabla(u"DET"_s), clave.CondicionSinTipo()),
        clave.Valores());
    QList<CasillaGuardada> casillas;
    while (filas.Siguiente())
        casillas.append({filas.Texto(0), filas.Texto(1)});
    return casillas;
}

QString UltimaCopiaEnviada(Base& base, const ClaveDeclaracion& clave) {
    Registros enviada =
        base.Lee(u"SELECT correl FROM HCAB "_s + clave.Condicion() + u" ORDER BY val(correl) DESC"_s, clave.Valores());
    return enviada.Siguiente() ? enviada.Texto(0) : QString();
}

void EliminaDeclaracion(Base& base, const Formulario& formulario, const ClaveDeclaracion& clave, const Firma& firma) {
    QList<TablaDeDeclaracion> tablas = formulario.tablas;
    if (clave.enviada)
        tablas.removeIf([](const TablaDeDeclaracion& tabla) { return tabla.copiaQueda; });
    std::sort(tablas.begin(), tablas.end(),
              [](const auto& una, const auto& otra) { return una.turnoAlEliminar < otra.turnoAlEliminar; });
    ConReintentos([&] {
        Transaccion transaccion = base.Comienza();
        Bitacora bitacora(base);
        const QString marca = bitacora.Anota(
            firma, {.suceso = Suceso::Eliminacion, .clave = clave, .antes = CasillasEnLineas(base, clave)});
        for (const TablaDeDeclaracion& tabla : tablas)
            base.Ejecuta(u"DELETE * FROM "_s + clave.Tabla(tabla.nombre) + u' ' + clave.Condicion(), clave.Valores());
        bitacora.Confirma(transaccion, marca);
    });
}

} // namespace xa518
