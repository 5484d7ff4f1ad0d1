#include "data/Seats.h"
#include "data/Retry.h"
#include "data/ServerFailure.h"
#include "data/Transaction.h"
#include "support/BaseFixture.h"

#include <QUuid>

#include <algorithm>
#include <thread>

namespace {

const DeclaracionOcupada kSetiembre{.ruc = u"20990518018"_s, .periodo = u"202609"_s, .formulario = u"0518"_s};

/// A seat of a base, with its work tables.
class SeatsTest : public BaseDePrueba {
  protected:
    /// Another program there; its seat goes back with it.
    [[nodiscard]] std::unique_ptr<Base> Otro(const QString& usuario = {}) const {
        auto base = Base::Abre(m_base.Ruta());
        if (!usuario.isEmpty())
            (void)base->LosPuestos()->Toma(En(usuario));
        return base;
    }
    [[nodiscard]] static Ocupante En(const QString& usuario) {
        return {.usuario = usuario, .equipo = u"CAJA-2"_s, .programa = u"xa518"_s};
    }
    [[nodiscard]] static int Pid(Base& base) {
        Registros fila = base.Lee(u"SELECT pg_backend_pid()"_s);
        return fila.Siguiente() ? static_cast<int>(fila.Entero(0)) : 0;
    }
    /// As a crash of its program ends it.
    static void Mata(Base& base) { PideAlServidor(u"SELECT pg_terminate_backend(%1, 5000)"_s.arg(Pid(base))); }
    static void AgregaCliente(Base& base, const QString& numero) {
        base.Ejecuta(u"INSERT INTO TMPF518PCAB (tip_doc_per, num_doc_per) VALUES (6, ?)"_s, {numero});
    }
    [[nodiscard]] static QString Clientes(Base& base) {
        QStringList numeros;
        Registros filas = base.Lee(u"SELECT num_doc_per FROM TMPF518PCAB ORDER BY num_doc_per"_s);
        while (filas.Siguiente())
            numeros.append(filas.Texto(0));
        return numeros.join(u'|');
    }
    /// "ANA+ ANA- LUIS-", live or not, in the order in which they were made.
    [[nodiscard]] QString Lista() const {
        QStringList puestos;
        for (const Puesto& puesto : m_base->LosPuestos()->Lista())
            puestos.append(puesto.quien.usuario + (puesto.vivo ? u'+' : u'-'));
        return puestos.join(u' ');
    }
    [[nodiscard]] QString EsquemaDe(const QString& usuario) const {
        const QList<Puesto> todos = m_base->LosPuestos()->Lista();
        const auto es = [&](const Puesto& puesto) { return puesto.quien.usuario == usuario; };
        return std::ranges::find_if(todos, es)->esquema;
    }
};

TEST_F(SeatsTest, EachHasItsOwnRowsAndTheyOutliveItsCrash) {
    const auto ana = Otro(u"ANA"_s);
    const auto tambienAna = Otro(u"ANA"_s);
    const auto luis = Otro(u"LUIS"_s);
    const auto hilo = Base::Abre(ana->Lugar());
    const qint64 version = hilo->Version();
    AgregaCliente(*luis, u"2"_s);
    EXPECT_EQ(hilo->Version(), version);
    AgregaCliente(*ana, u"1"_s);
    EXPECT_NE(hilo->Version(), version);
    AgregaCliente(*ana, u"3"_s);
    EXPECT_EQ(Clientes(*hilo), u"1|3"_s) << "a thread of the same program sees the same";
    EXPECT_EQ(Clientes(*luis) + u'/' + Clientes(*tambienAna) + u'/' + Clientes(*m_base), u"2//"_s);
    EXPECT_EQ(Lista(), u"ANA+ ANA+ LUIS+"_s);

    ASSERT_TRUE(ana->LosPuestos()->Ocupa(kSetiembre));
    ana->LosPuestos()->Anota(kSetiembre, u"como estaba"_s);
    Mata(*ana);
    Mata(*luis);
    EXPECT_EQ(Lista(), u"ANA- ANA+ LUIS-"_s);
    const auto vuelve = Otro();
    const Puesto suyo = vuelve->LosPuestos()->Toma(En(u"ANA"_s));
    EXPECT_EQ(Clientes(*vuelve), u"1|3"_s);
    EXPECT_EQ(suyo.abierta, kSetiembre);
    EXPECT_EQ(suyo.estado, u"como estaba"_s);

    EXPECT_FALSE(vuelve->LosPuestos()->Quita(EsquemaDe(u"ANA"_s))) << "somebody is in it";
    EXPECT_TRUE(vuelve->LosPuestos()->Quita(EsquemaDe(u"LUIS"_s)));
    EXPECT_EQ(Lista(), u"ANA+ ANA+"_s);
}

TEST_F(SeatsTest, ASeatOfEarlierTablesIsMadeAnew) {
    {
        const auto ana = Otro(u"ANA"_s);
        AgregaCliente(*ana, u"1"_s);
    }
    m_base->Ejecuta(u"ALTER TABLE familia.TMPF518PCAB ADD COLUMN nueva text"_s);
    m_base->PonVersionDelEsquema(99);
    const auto ana = Otro(u"ANA"_s);
    EXPECT_EQ(Clientes(*ana), QString());
    EXPECT_EQ(NumeroDe([&] { ana->Ejecuta(u"UPDATE TMPF518PCAB SET nueva = ''"_s); }), 0);
    EXPECT_EQ(Lista(), u"ANA+"_s);
}

TEST_F(SeatsTest, OneHasADeclarationUntilItLetsItGoOrDies) {
    const auto ana = Otro(u"ANA"_s);
    const auto luis = Otro(u"LUIS"_s);
    ASSERT_TRUE(ana->LosPuestos()->Ocupa(kSetiembre));
    EXPECT_FALSE(luis->LosPuestos()->Ocupa(kSetiembre));
    EXPECT_EQ(luis->LosPuestos()->QuienTiene(kSetiembre)->quien.usuario, u"ANA"_s);
    DeclaracionOcupada copia = kSetiembre;
    copia.correl = u"1"_s;
    EXPECT_TRUE(luis->LosPuestos()->Ocupa(copia)) << "a sent copy is another one";
    luis->LosPuestos()->Libera(copia);
    ana->LosPuestos()->Libera(kSetiembre);
    EXPECT_FALSE(luis->LosPuestos()->QuienTiene(kSetiembre));
    ASSERT_TRUE(luis->LosPuestos()->Ocupa(kSetiembre));
    Mata(*luis);
    EXPECT_TRUE(ana->LosPuestos()->Ocupa(kSetiembre));
}

TEST_F(SeatsTest, ALostConnectionComesBackToItsSeatAndNeverToAnothers) {
    const auto ana = Otro(u"ANA"_s);
    AgregaCliente(*ana, u"1"_s);
    ASSERT_TRUE(ana->LosPuestos()->Ocupa(kSetiembre));
    Mata(*ana);
    EXPECT_EQ(NumeroDe([&] { (void)Clientes(*ana); }), 3151);
    EXPECT_EQ(Clientes(*ana), u"1"_s);
    EXPECT_EQ(Lista(), u"ANA+"_s);
    EXPECT_FALSE(Otro(u"LUIS"_s)->LosPuestos()->Ocupa(kSetiembre));

    const auto vuelve = [&] {
        EXPECT_EQ(NumeroDe([&] { (void)Clientes(*ana); }), 3151);
        for (int i = 0; i < 2; ++i) // it never goes on without
            EXPECT_EQ(NumeroDe([&] { AgregaCliente(*ana, u"9"_s); }), 3051);
    };
    Mata(*ana);
    {
        const auto otra = Otro(u"ANA"_s);
        EXPECT_EQ(Clientes(*otra), u"1"_s);
    }
    vuelve();
    EXPECT_TRUE(m_base->LosPuestos()->Quita(EsquemaDe(u"ANA"_s)));
    EXPECT_EQ(NumeroDe([&] { AgregaCliente(*ana, u"9"_s); }), 3051);
    EXPECT_EQ(Clientes(*m_base), QString()) << "nor in the tables of the family";
}

/// An account of the server of the tests.
class Cuenta {
  public:
    explicit Cuenta(const QString& permisos) {
        PideAlServidor(u"CREATE ROLE %1 LOGIN"_s.arg(nombre));
        m_permisos = permisos.arg(nombre);
    }
    void Concede(Base& base) const {
        for (const QString& permiso : m_permisos.split(u';', Qt::SkipEmptyParts))
            base.Ejecuta(permiso);
    }

    const QString nombre = u"cuenta_"_s + QUuid::createUuid().toString(QUuid::Id128);

  private:
    QString m_permisos;
};

TEST_F(SeatsTest, NoAccountNeedsMoreRightsThanItsOwnWork) {
    const QString camino = u"GRANT USAGE ON SCHEMA familia, dialecto TO %1;"_s;
    const Cuenta trabajo(camino + u"GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA familia TO %1"_s);
    const Cuenta lectura(camino + u"GRANT SELECT ON ALL TABLES IN SCHEMA familia TO %1"_s);
    trabajo.Concede(*m_base);
    lectura.Concede(*m_base);
    const auto ana = Base::Abre(m_base.Ruta() + u" user="_s + trabajo.nombre);
    (void)ana->LosPuestos()->Toma(En(u"ANA"_s));
    AgregaCliente(*ana, u"1"_s);
    EXPECT_FALSE(ana->SoloLectura());
    const auto lee = Base::Abre(m_base.Ruta() + u" user="_s + lectura.nombre);
    EXPECT_TRUE(lee->SoloLectura());
    (void)lee->LosPuestos()->Toma(En(u"EVA"_s));
    AgregaCliente(*lee, u"2"_s); // where a declaration is shown from
    EXPECT_EQ(Clientes(*lee), u"2"_s);
    const QString deAna = EsquemaDe(u"ANA"_s);
    const QStringList vedadas{u"INSERT INTO CLAVES VALUES ('X', '0')"_s, u"SELECT * FROM %1.TMPF518PCAB"_s.arg(deAna),
                              u"SELECT familia.quita_puesto('%1')"_s.arg(deAna),
                              u"SELECT familia.haz_tablas_del_puesto('ajeno', 'x')"_s};
    for (const QString& sql : vedadas)
        EXPECT_EQ(NumeroDe([&] { (void)lee->Lee(sql); }), 3051) << qPrintable(sql);
    EXPECT_EQ(NumeroDe([&] { (void)ana->Lee(u"DROP TABLE TMPF518PCAB"_s); }), 3051);
}

TEST_F(SeatsTest, AUnitOfWorkThatAnotherOneHinderedIsDoneAgainFiveTimesAtMost) {
    const auto hazEnElIntento = [&](int bueno) {
        int intentos = 0;
        return NumeroDe([&] {
                   ConReintentos([&] {
                       Transaccion transaccion = m_base->Comienza(Turno::Propio);
                       m_base->Ejecuta(u"INSERT INTO CLAVES VALUES (?, '0')"_s, {QString::number(++intentos)});
                       if (intentos < bueno)
                           m_base->Ejecuta(intentos % 2 == 0 ? u"DO 'BEGIN RAISE deadlock_detected; END'"_s
                                                             : u"DO 'BEGIN RAISE serialization_failure; END'"_s);
                       transaccion.Confirma();
                   });
               }) * 10 +
               intentos;
    };
    EXPECT_EQ(hazEnElIntento(5), 5);
    EXPECT_EQ(BaseDePrueba::Lista(u"SELECT Usuario FROM CLAVES"_s), u"5"_s);
    m_base->Ejecuta(u"DELETE FROM CLAVES"_s);
    EXPECT_EQ(hazEnElIntento(6), 30515);
}

/// The server waits for another one that doesn't answer, after it has written: so the connection can be ended between
/// the commit and its answer.
class EsperaDeReplica {
  public:
    EsperaDeReplica() {
        PideAlServidor(u"ALTER SYSTEM SET synchronous_standby_names = 'nadie'"_s);
        PideAlServidor(u"SELECT pg_reload_conf()"_s);
    }
    EsperaDeReplica(const EsperaDeReplica&) = delete;
    EsperaDeReplica& operator=(const EsperaDeReplica&) = delete;
    ~EsperaDeReplica() {
        PideAlServidor(u"ALTER SYSTEM RESET synchronous_standby_names"_s);
        PideAlServidor(u"SELECT pg_reload_conf()"_s);
    }
};

TEST_F(SeatsTest, AConnectionThatBreaksInTheCommitIsLookedUp) {
    bool conMarca = true;
    const auto confirma = [&](const QString& usuario) {
        return NumeroDe([&] {
            Transaccion transaccion = m_base->Comienza();
            m_base->Ejecuta(u"INSERT INTO CLAVES VALUES (?, '0')"_s, {usuario});
            if (!conMarca)
                return transaccion.Confirma();
            transaccion.Confirma(
                [&] { return m_base->Lee(u"SELECT 1 FROM CLAVES WHERE Usuario = ?"_s, {usuario}).Siguiente(); });
        });
    };
    m_base->Ejecuta(u"CREATE FUNCTION familia.muere() RETURNS trigger LANGUAGE plpgsql AS"
                    " 'BEGIN PERFORM pg_terminate_backend(pg_backend_pid()); RETURN NULL; END'"_s);
    m_base->Ejecuta(u"CREATE CONSTRAINT TRIGGER muere AFTER INSERT ON CLAVES DEFERRABLE INITIALLY DEFERRED"
                    " FOR EACH ROW WHEN (NEW.Usuario = 'EVA') EXECUTE FUNCTION familia.muere()"_s);
    for (const bool marca : {true, false}) {
        conMarca = marca;
        EXPECT_EQ(confirma(u"EVA"_s), 3151);
    }
    EXPECT_EQ(BaseDePrueba::Lista(u"SELECT Usuario FROM CLAVES"_s), QString());

    const EsperaDeReplica espera;
    QStringList usuarios;
    for (const bool marca : {true, false}) {
        conMarca = marca;
        m_base->Ejecuta(u"SET synchronous_commit = on"_s);
        const int pid = Pid(*m_base);
        const std::jthread corte([pid](const std::stop_token& basta) {
            while (!basta.stop_requested()) {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                PideAlServidor(u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE pid = %1 AND"
                               " wait_event = 'SyncRep'"_s.arg(pid));
            }
        });
        // The server needs a moment to begin to wait.
        for (int i = 0; i == 0 || (Pid(*m_base) == pid && i < 500); ++i) {
            usuarios.append(u"ANA%1"_s.arg(100 + usuarios.size()));
            EXPECT_EQ(confirma(usuarios.constLast()), 0) << "it arrived";
        }
        EXPECT_NE(Pid(*m_base), pid) << "over a broken connection";
    }
    EXPECT_EQ(BaseDePrueba::Lista(u"SELECT Usuario FROM CLAVES ORDER BY Usuario"_s), usuarios.join(u'|'));
}

} // namespace
