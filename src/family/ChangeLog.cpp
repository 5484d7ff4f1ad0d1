#include "family/ChangeLog.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "family/StoredDeclaration.h"
#include "platform/Clock.h"

#include <QMap>
#include <QStringList>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kMomento = u"yyyy-MM-dd HH:mm:ss"_s;
const QString kColumnas =
    u"Momento, Usuario, Equipo, Suceso, Doc_id_d, periodo, Formulario, correl, Antes, Despues, Marca"_s;

struct Nombres {
    Suceso suceso;
    QString codigo;
    QString texto;
};

const QList<Nombres>& LosNombres() {
    static const QList<Nombres> nombres = {
        {Suceso::Grabacion, u"GRABAR"_s, u"Declaración grabada"_s},
        {Suceso::Eliminacion, u"ELIMINAR"_s, u"Declaración eliminada"_s},
        {Suceso::Envio, u"ENVIAR"_s, u"Pasada a las enviadas"_s},
        {Suceso::NumeroDeOrden, u"ORDEN"_s, u"Número de orden registrado"_s},
        {Suceso::Restauracion, u"RESTAURAR"_s, u"Copia de respaldo restaurada"_s},
        {Suceso::Mudanza, u"MUDAR"_s, u"Base mudada"_s},
        {Suceso::Declarante, u"DECLARANTE"_s, u"Cambio de un declarante"_s},
    };
    return nombres;
}

Asiento AsientoDe(const Registros& fila) {
    return {.momento = fila.Texto(0),
            .usuario = fila.Texto(1),
            .equipo = fila.Texto(2),
            .suceso = fila.Texto(3),
            .ruc = fila.Texto(4),
            .periodo = fila.Texto(5),
            .formulario = fila.Texto(6),
            .correl = fila.Texto(7),
            .antes = fila.Texto(8),
            .despues = fila.Texto(9),
            .marca = fila.Texto(10)};
}

/// Conditions that all have to hold, with their values.
class Condiciones {
  public:
    void Pon(const QString& condicion, const QVariant& valor) {
        m_partes.append(condicion);
        m_valores.append(valor);
    }
    void PonSiHay(const QString& condicion, const QString& valor) {
        if (!valor.isEmpty())
            Pon(condicion, valor);
    }
    [[nodiscard]] QString Sql() const {
        return m_partes.isEmpty() ? QString() : u" WHERE "_s + m_partes.join(u" AND "_s);
    }
    [[nodiscard]] const QVariantList& Valores() const { return m_valores; }

  private:
    QStringList m_partes;
    QVariantList m_valores;
};

Condiciones CondicionesDe(const FiltroDeBitacora& filtro) {
    Condiciones condiciones;
    condiciones.PonSiHay(u"Doc_id_d = ?"_s, filtro.ruc);
    condiciones.PonSiHay(u"Suceso = ?"_s, filtro.suceso);
    condiciones.PonSiHay(u"Usuario = ?"_s, filtro.usuario);
    if (filtro.periodo)
        condiciones.Pon(u"periodo = ?"_s, filtro.periodo->Texto());
    if (filtro.desde.isValid())
        condiciones.Pon(u"Momento >= ?"_s, filtro.desde.toString(Qt::ISODate));
    if (filtro.hasta.isValid())
        condiciones.Pon(u"Momento < ?"_s, filtro.hasta.addDays(1).toString(Qt::ISODate));
    return condiciones;
}

QMap<QString, QString> PorCasilla(const QString& lineas) {
    QMap<QString, QString> valores;
    for (const QString& linea : lineas.split(u'\n', Qt::SkipEmptyParts))
        valores.insert(linea.section(u'=', 0, 0), linea.section(u'=', 1));
    return valores;
}

} // namespace

Firma FirmaDe(const QString& usuario, const Reloj& reloj) {
    return {.usuario = usuario, .equipo = QSysInfo::machineHostName(), .momento = reloj.Ahora()};
}

QString CodigoDe(Suceso suceso) {
    const auto es = [suceso](const Nombres& nombres) { return nombres.suceso == suceso; };
    return std::ranges::find_if(LosNombres(), es)->codigo;
}

QString TextoDeSuceso(const QString& codigo) {
    for (const Nombres& nombres : LosNombres()) {
        if (nombres.codigo == codigo)
            return nombres.texto;
    }
    return codigo;
}

const QList<Suceso>& LosSucesos() {
    static const QList<Suceso> sucesos = [] {
        QList<Suceso> todos;
        for (const Nombres& nombres : LosNombres())
            todos.append(nombres.suceso);
        return todos;
    }();
    return sucesos;
}

QString Asiento::MomentoMostrado() const {
    return QDateTime::fromString(momento, kMomento).toString(u"dd/MM/yyyy HH:mm:ss"_s);
}

QString Asiento::Quien() const {
    const QDateTime cuando = QDateTime::fromString(momento, kMomento);
    return u"%1 en %2 el %3 a las %4"_s.arg(usuario, equipo, cuando.toString(u"dd/MM/yyyy"_s),
                                            cuando.toString(u"HH:mm"_s));
}

QList<CambioDeValor> Asiento::ValoresCambiados() const {
    const QMap<QString, QString> viejas = PorCasilla(antes);
    const QMap<QString, QString> nuevas = PorCasilla(despues);
    QStringList casillas = viejas.keys() + nuevas.keys();
    casillas.sort();
    casillas.removeDuplicates();
    QList<CambioDeValor> cambios;
    for (const QString& casilla : casillas) {
        if (viejas.value(casilla) != nuevas.value(casilla))
            cambios.append({casilla, viejas.value(casilla), nuevas.value(casilla)});
    }
    return cambios;
}

QStringList Asiento::Cambios() const {
    QStringList partes;
    for (const auto& [dato, anterior, nuevo] : ValoresCambiados())
        partes.append(u"%1: %2 → %3"_s.arg(dato, anterior, nuevo));
    return partes;
}

QString Bitacora::Anota(const Firma& firma, const Cambio& cambio) {
    QString marca = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const ClaveDeclaracion& clave = cambio.clave;
    m_base->Ejecuta(u"INSERT INTO BITACORA (%1) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s.arg(kColumnas),
                    {firma.momento.toString(kMomento), firma.usuario, firma.equipo, CodigoDe(cambio.suceso),
                     clave.ruc.Texto(), clave.periodo.Texto(), clave.formulario, clave.correl, cambio.antes,
                     cambio.despues, marca});
    return marca;
}

void Bitacora::Confirma(Transaccion& transaccion, const QString& marca) const {
    transaccion.Confirma(
        [&] { return m_base->Lee(u"SELECT Marca FROM BITACORA WHERE Marca = ?"_s, {marca}).Siguiente(); });
}

QString Bitacora::Sql(const QString& condicion) const {
    return u"SELECT %1 FROM BITACORA%2 ORDER BY %3 DESC"_s.arg(kColumnas, condicion,
                                                               m_base->NumeroDeFila(u"BITACORA"_s));
}

QList<Asiento> Bitacora::Lista(const FiltroDeBitacora& filtro, int tope) const {
    const Condiciones condiciones = CondicionesDe(filtro);
    const QString limite = tope == kTodos ? QString() : u" LIMIT %1"_s.arg(tope);
    Registros filas = m_base->Lee(Sql(condiciones.Sql()) + limite, condiciones.Valores());
    QList<Asiento> asientos;
    while (filas.Siguiente())
        asientos.append(AsientoDe(filas));
    return asientos;
}

std::optional<Asiento> Bitacora::UltimoDe(const ClaveDeclaracion& clave) const {
    Condiciones condiciones;
    condiciones.Pon(u"Doc_id_d = ?"_s, clave.ruc.Texto());
    condiciones.Pon(u"periodo = ?"_s, clave.periodo.Texto());
    condiciones.Pon(u"Formulario = ?"_s, clave.formulario);
    condiciones.Pon(u"correl = ?"_s, clave.correl);
    Registros filas = m_base->Lee(Sql(condiciones.Sql()) + u" LIMIT 1"_s, condiciones.Valores());
    return filas.Siguiente() ? std::optional(AsientoDe(filas)) : std::nullopt;
}

QString EnLineas(const QList<CasillaGuardada>& casillas) {
    QStringList lineas;
    for (const CasillaGuardada& casilla : casillas)
        lineas.append(casilla.casilla + u'=' + casilla.valor);
    return lineas.join(u'\n');
}

QString CasillasEnLineas(Base& base, const ClaveDeclaracion& clave) {
    return EnLineas(CasillasGuardadas(base, clave));
}

} // namespace xa518
