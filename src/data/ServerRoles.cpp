#include "data/ServerRoles.h"

#include "data/Base.h"
#include "data/ServerControl.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kEsquemas = u"familia, dialecto"_s;

class Reparto {
  public:
    explicit Reparto(MandoDeServidor& mando) : m_mando(&mando) {}

    /// What isn't allowed is kept for an administrator, and the rest goes on.
    void Da(const QString& sql) {
        try {
            m_mando->Pide(sql);
            m_permisos.dados.append(sql);
        } catch (const ErrorBase& error) {
            const bool faltaPermiso = error.Es(NumeroError::BaseBloqueada);
            const bool faltaGrupo = error.Detalle().startsWith("42704"_L1);
            if (!faltaPermiso && !faltaGrupo)
                throw;
            m_permisos.pendientes.append(sql);
        }
    }

    /// Another installation of the same server may make it at the same moment.
    void CreaGrupo(const QString& grupo) {
        if (EstaElGrupo(grupo))
            return;
        try {
            Da(u"CREATE ROLE %1 NOLOGIN"_s.arg(grupo));
        } catch (const ErrorBase&) {
            if (!EstaElGrupo(grupo))
                throw;
        }
    }

    [[nodiscard]] bool EstaElGrupo(const QString& grupo) const {
        return !m_mando->Pide(u"SELECT 1 FROM pg_roles WHERE rolname = "_s + TextoSql(grupo)).isEmpty();
    }
    [[nodiscard]] PermisosDados Termina() { return std::move(m_permisos); }

  private:
    MandoDeServidor* m_mando;
    PermisosDados m_permisos;
};

/// The server's words for whoever owns something, of all that lies in the two schemas.
QStringList CambiosDeDueno(MandoDeServidor& mando) {
    QStringList cambios;
    const auto agrega = [&](const QString& consulta) {
        for (const QStringList& fila : mando.Pide(consulta.arg(TextoSql(kGrupoDueno))))
            cambios.append(u"ALTER %1 OWNER TO %2"_s.arg(fila.constFirst(), kGrupoDueno));
    };
    agrega(u"SELECT 'SCHEMA ' || nspname FROM pg_namespace WHERE nspname IN ('familia', 'dialecto') AND"
           " pg_get_userbyid(nspowner) <> %1 ORDER BY 1"_s);
    agrega(u"SELECT 'TABLE ' || oid::regclass FROM pg_class WHERE relkind = 'r' AND"
           " relnamespace = to_regnamespace('familia') AND pg_get_userbyid(relowner) <> %1 ORDER BY 1"_s);
    agrega(u"SELECT 'ROUTINE ' || oid::regprocedure FROM pg_proc WHERE pronamespace IN (to_regnamespace('dialecto'),"
           " to_regnamespace('familia')) AND pg_get_userbyid(proowner) <> %1 ORDER BY 1"_s);
    return cambios;
}

void HazDueno(Reparto& reparto, MandoDeServidor& mando) {
    if (reparto.EstaElGrupo(kGrupoDueno) &&
        mando.PideUno(u"SELECT pg_has_role('%1', 'MEMBER')"_s.arg(kGrupoDueno)) != u"t")
        reparto.Da(u"GRANT %1 TO CURRENT_USER"_s.arg(kGrupoDueno));
    for (const QString& cambio : CambiosDeDueno(mando))
        reparto.Da(cambio);
}

void DaTrabajo(Reparto& reparto, const QStringList& soloAltas) {
    reparto.Da(u"GRANT USAGE ON SCHEMA %1 TO %2"_s.arg(kEsquemas, kGrupoTrabajo));
    reparto.Da(u"GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA familia TO %1"_s.arg(kGrupoTrabajo));
    for (const QString& tabla : soloAltas)
        reparto.Da(u"REVOKE UPDATE, DELETE, TRUNCATE ON familia.%1 FROM %2"_s.arg(tabla, kGrupoTrabajo));
    // The seats are written by functions of the owner.
    reparto.Da(
        u"REVOKE INSERT, UPDATE, DELETE ON familia.version_esquema, familia.puestos FROM %1"_s.arg(kGrupoTrabajo));
    reparto.Da(u"GRANT SELECT ON ALL SEQUENCES IN SCHEMA familia TO %1"_s.arg(kGrupoTrabajo)); // to copy the base
}

void DaLectura(Reparto& reparto) {
    reparto.Da(u"GRANT USAGE ON SCHEMA %1 TO %2"_s.arg(kEsquemas, kGrupoLectura));
    reparto.Da(u"GRANT SELECT ON ALL TABLES IN SCHEMA familia TO %1"_s.arg(kGrupoLectura));
    reparto.Da(u"GRANT SELECT ON ALL SEQUENCES IN SCHEMA familia TO %1"_s.arg(kGrupoLectura));
}

} // namespace

bool EsDuenoDeLaBase(const QString& conexion) {
    MandoDeServidor mando(conexion, MandoDeServidor::Lugar::EnLaBase);
    return mando.PideUno(u"SELECT pg_has_role(nspowner, 'USAGE') FROM pg_namespace WHERE nspname = 'familia'"_s) ==
           u"t";
}

PermisosDados DaPermisos(const QString& conexion, const QStringList& soloAltas) {
    MandoDeServidor mando(conexion, MandoDeServidor::Lugar::EnLaBase);
    mando.Pide(u"SELECT pg_advisory_lock(22593, 2)"_s); // another installer waits until this connection ends
    Reparto reparto(mando);
    for (const QString& grupo : {kGrupoDueno, kGrupoTrabajo, kGrupoLectura})
        reparto.CreaGrupo(grupo);
    const QString base = NombreSql(mando.Nombrada());
    reparto.Da(u"GRANT CONNECT, CREATE ON DATABASE %1 TO %2"_s.arg(base, kGrupoDueno));
    reparto.Da(u"GRANT CONNECT ON DATABASE %1 TO %2, %3"_s.arg(base, kGrupoTrabajo, kGrupoLectura));
    HazDueno(reparto, mando);
    DaTrabajo(reparto, soloAltas);
    DaLectura(reparto);
    return reparto.Termina();
}

} // namespace xa518
