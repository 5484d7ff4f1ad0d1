#include "declaration/Save.h"

#include "data/FollowedWork.h"
#include "data/Transaction.h"
#include "declaration/ClientGrid.h"
#include "family/StoredDeclaration.h"
#include "form518/Form0518.h"
#include "form518/RowCounts.h"
#include "form518/WorkTables.h"
#include "support/ProgressScript.h"
#include "support/TemporaryBase.h"

#include <gmock/gmock.h>

#include <thread>

namespace {

const QDate kHoy(2026, 11, 21);
const ClaveDeclaracion kClave{.ruc = Ruc(u"20100000009"), .periodo = Periodo(2026, 10), .formulario = kNumFormulario};

class Save : public testing::Test {
  protected:
    void SetUp() override {
        base.Param(u"044"_s, u"6"_s, Funcion({{1, u"REGISTRO"_s}, {32, u"RUC"_s}, {46, u"11"_s}}), 3);
        base.Param(u"044"_s, u"1"_s, Funcion({{1, u"DOCUMENTO"_s}, {32, u"DNI"_s}, {46, u" 8"_s}}), 4);
        base.Param(u"953"_s, u"1010909200501"_s, {}, 10);
        base.Param(u"981"_s, u"0518"_s, u"044,953"_s);
        base.Param(u"856"_s, u"0518"_s, Funcion({{5, u"       123"_s}, {20, u"506"_s}}));
    }

    void Cliente(int tipo, const QString& numero, const QString& percepcion,
                 const QString& nombre = u"Ñandú \"O'Hara\""_s) const {
        base->Ejecuta(u"INSERT INTO TMPF518PCAB (tip_doc_per,num_doc_per,des_razon,des_apellido_p,des_apellido_m,"
                      "des_nombres,ctd_docs,mto_base_p,mto_imp_p) VALUES (?,?,?,'P','M','N','99','100.00',?)"_s,
                      {tipo, numero, nombre, percepcion});
    }
    void Comprobante(int tipo, const QString& numero, const QString& cp, const QString& tipCp) const {
        base->Ejecuta(u"INSERT INTO TMPF518PDET (tip_doc_per,num_doc_per,num_serie_cp,num_cp,tip_cp,cp_fact,lista_clie,"
                      "med_pago,fec_emision_cp,mto_base_p,mto_imp_p,por_tasa_p) "
                      "VALUES (?,?,'0001',?,?,'1','0','9','05/10/2026','100.40','2.01','2.00')"_s,
                      {tipo, numero, cp, tipCp});
    }
    void Pago(const QString& numero, const QString& monto) const {
        base->Ejecuta(
            u"INSERT INTO TMPF518PDETCP VALUES (6,'20500000007','0001','00000001','01','0001',?,'05/10/2026',?)"_s,
            {numero, monto});
    }
    void Detalle() const {
        Cliente(6, u"20500000007"_s, u"1000.00"_s);
        Cliente(6, u"10400000001"_s, u"2.01"_s);
        Comprobante(6, u"20500000007"_s, u"00000001"_s, u""_s);
        Comprobante(6, u"20500000007"_s, u"00000002"_s, u""_s);
        Comprobante(6, u"10400000001"_s, u"00000003"_s, u"01"_s);
        Pago(u"00000011"_s, u"150.40"_s);
        Pago(u"00000012"_s, u"-50.20"_s);
    }
    [[nodiscard]] Declaracion Nueva() const {
        Declaracion declaracion;
        declaracion.clave = kClave;
        RefrescaTotales(*base, declaracion);
        declaracion.montos.Cambia(402, u"(300)"_s);
        declaracion.montos.Cambia(410, declaracion.montos.Texto(405));
        declaracion.pago = {.forma = FormaDePago::Efectivo, .importe = declaracion.montos.ImportePagar()};
        declaracion.rectifica = Rectificacion::No;
        return declaracion;
    }
    [[nodiscard]] ResultadoGrabacion Graba(const Declaracion& declaracion, const QDate& hoy = kHoy) const {
        return GrabaDeclaracion(*base, declaracion, EstadoGuardado::De(*base, declaracion.clave), De(u"ANA"_s, hoy));
    }
    [[nodiscard]] static Firma De(const QString& usuario, const QDate& hoy = kHoy) {
        return {.usuario = usuario, .equipo = u"CAJA-2"_s, .momento = QDateTime(hoy, QTime(10, 42))};
    }
    [[nodiscard]] QString Casilla(const QString& casilla) const {
        return base.Filas(u"SELECT i_valor FROM DET WHERE Casilla='%1'"_s.arg(casilla)).value(0, u"-"_s);
    }

    BaseTemporal base;
};

TEST_F(Save, WritesHeadBoxesAndDetailWithTheirChecksums) {
    Detalle();
    const ResultadoGrabacion resultado = Graba(Nueva());
    EXPECT_EQ(resultado.estado, 0);
    EXPECT_EQ(resultado.mensajes.last().texto,
              u"Toda la información de la declaración fue grabada satisfactoriamente."_s);
    EXPECT_EQ(base.Filas(u"SELECT Doc_id_d,tip_doc_d,periodo,Formulario,fec_pro,bcolibrad,nrocheque,cheque,efectivo,"
                         "estado,rectifica FROM CAB"_s),
              QStringList{u"20100000009|6|202610|0518|21/11/2026| | ||702|0|0"_s});
    QStringList casillas = base.Filas(u"SELECT Casilla || '=' || i_valor FROM DET ORDER BY Casilla"_s);
    EXPECT_EQ(casillas.join(u' '),
              u"002=20100000009 005=0 007=202610 401=1002 402=-300 403=702 405=702 410=702 501=2 502=200 503=1002 "
              "506=123 510=2 511=201 512=4 513=1 514=100 515=2 516=2 517=100 599=E 721=1.5 722=9838 871=0 999=E"_s);
    EXPECT_EQ(base.Filas(u"SELECT Casilla FROM DET WHERE idcasilla='05'"_s), QStringList{u"410"_s});
    EXPECT_EQ(base.Filas(u"SELECT num_doc_per,des_razon,des_apellido_p,des_apellido_m,des_nombres,ctd_docs,mto_imp_p,"
                         "ind_ruc FROM F518PCAB ORDER BY "_s +
                         base->NumeroDeFila(u"F518PCAB"_s)),
              (QStringList{u"20500000007|Ñandú \"O'Hara\"|<null>|<null>|<null>|2|1000.00|1"_s,
                           u"10400000001|<null>|P|M|N|1|2.01|1"_s}));
    EXPECT_EQ(base.Filas(u"SELECT num_cp, tip_cp FROM F518PDETVC"_s), QStringList{u"00000003|01"_s});
    EXPECT_EQ(base.Filas(u"SELECT num_cp FROM F518PDET ORDER BY "_s + base->NumeroDeFila(u"F518PDET"_s)),
              (QStringList{u"00000001"_s, u"00000002"_s}));
    EXPECT_EQ(
        base.Filas(u"SELECT num_detcp, mto_detcp FROM F518PDETCP ORDER BY "_s + base->NumeroDeFila(u"F518PDETCP"_s)),
        (QStringList{u"00000011|150.40"_s, u"00000012|-50.20"_s}));
    // Both of these checksums were worked out by hand from the fields.
    EXPECT_EQ(base.Filas(u"SELECT cNumero FROM CAB"_s), QStringList{u"143397"_s});
    EXPECT_EQ(base.Filas(u"SELECT cNumero FROM DET WHERE Casilla='401'"_s), QStringList{u"546146"_s});
    for (const QString& tabla : kTablas)
        EXPECT_TRUE(
            base.Filas(u"SELECT 1 FROM %1 WHERE cNumero IS NULL OR length(cNumero) <> 6"_s.arg(tabla)).isEmpty())
            << tabla.toStdString();
}

TEST_F(Save, SavingAgainReplacesEveryRowOrNone) {
    Detalle();
    ASSERT_EQ(Graba(Nueva()).estado, 0);
    const QString primero = Retrato(*base);
    ASSERT_EQ(Graba(Nueva()).estado, 0);
    EXPECT_EQ(Retrato(*base), primero);
    // The last table to be written takes a text whose checksum overflows.
    base->Ejecuta(u"UPDATE TMPF518PDETCP SET mto_detcp=? WHERE num_detcp='00000012'"_s, {QString(400, u'Z')});
    EXPECT_THROW((void)Graba(Nueva(), kHoy.addDays(1)), Desbordamiento);
    EXPECT_EQ(Retrato(*base), primero);
    TablasTrabajo(*base).EliminaCliente({CodigoDocumento(6), u"20500000007"_s});
    ASSERT_EQ(Graba(Nueva()).estado, 0);
    EXPECT_EQ(base.Filas(u"SELECT count(*) FROM F518PDETCP"_s), QStringList{u"0"_s});
    EXPECT_EQ(Casilla(u"501"_s), u"1"_s);
}

TEST_F(Save, WithoutAWayOfPaymentTheStoredOneStays) {
    Declaracion declaracion = Nueva();
    declaracion.pago = {
        .forma = FormaDePago::Cheque, .banco = u"02"_s, .numeroCheque = u"007"_s, .importe = u"1,250"_s};
    ASSERT_EQ(Graba(declaracion).estado, 0);
    EXPECT_EQ(Casilla(u"015"_s), u"2"_s); // the bank goes through the number mask
    EXPECT_EQ(Casilla(u"012"_s), u"007"_s);
    declaracion.pago = {};
    const ResultadoGrabacion resultado = Graba(declaracion);
    EXPECT_EQ(resultado.estado, 9);
    EXPECT_EQ(
        resultado.mensajes.last().texto,
        u"La infomación de la declaración fue grabada con inconsistencias. En estas condiciones no podra ser enviada a ZOLMA."_s);
    EXPECT_EQ(base.Filas(u"SELECT bcolibrad,nrocheque,cheque,efectivo,estado FROM CAB"_s),
              QStringList{u"02|007|1250||9"_s});
}

/// Nor does one of an unknown type, who is lost.
TEST_F(Save, WithoutClientsTheTotalsLeaveNoRow) {
    ASSERT_EQ(Graba(Nueva()).estado, 0);
    for (const QString& ausente : {u"502"_s, u"503"_s, u"401"_s})
        EXPECT_EQ(Casilla(ausente), u"-"_s) << qPrintable(ausente);
    for (const QString& cero : {u"501"_s, u"510"_s, u"511"_s, u"514"_s, u"516"_s, u"517"_s})
        EXPECT_EQ(Casilla(cero), u"0"_s) << cero.toStdString();
    Cliente(5, u"X1"_s, u"5.00"_s);
    ASSERT_EQ(Graba(Nueva()).estado, 0);
    EXPECT_TRUE(base.Filas(u"SELECT num_doc_per FROM F518PCAB"_s).isEmpty());
    EXPECT_EQ(Casilla(u"501"_s), u"0"_s);
}

/// A save, or an opening, that is stopped in the middle of a statement leaves the base as it was.
TEST_F(Save, StoppedInTheMiddleNothingHasHappened) {
    Detalle();
    ASSERT_EQ(Graba(Nueva()).estado, 0);
    base->Ejecuta(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
        "INSERT INTO TMPF518PDET SELECT 6, '20500000007', '0002', CAST(10000000 + i AS TEXT), '', '1', '0', '9', "
        "'05/10/2026', '1.00', '0.02', '2.00' FROM n"_s);
    const QString guardada = Retrato(*base);
    const auto seDetiene = [&](const std::function<void()>& trabajo) {
        AvanceDePrueba avance([antes = qint64(0)](qint64 hecho, qint64 total) mutable {
            EXPECT_LE(std::exchange(antes, hecho), hecho);
            EXPECT_LE(hecho, total);
            if (hecho * 2 >= total)
                throw Detenido();
        });
        const TrabajoSeguido seguido(*base, avance, FilasDelDetalle(*base, kClave));
        EXPECT_THROW(trabajo(), Detenido);
    };
    seDetiene([&] { (void)Graba(Nueva(), kHoy.addDays(1)); });
    EXPECT_EQ(Retrato(*base), guardada);

    ASSERT_EQ(Graba(Nueva()).estado, 0);
    base->Ejecuta(u"DELETE * FROM TMPF518PDETCP"_s);
    seDetiene([&] { TablasTrabajo(*base).Reconstruye(kClave); });
    EXPECT_EQ(base.Filas(u"SELECT count(*) FROM TMPF518PDET"_s), QStringList{u"5003"_s});
    EXPECT_EQ(base.Filas(u"SELECT count(*) FROM TMPF518PDETCP"_s), QStringList{u"0"_s});
    TablasTrabajo(*base).Reconstruye(kClave);
    EXPECT_EQ(base.Filas(u"SELECT count(*) FROM TMPF518PDETCP"_s), QStringList{u"2"_s}) << "the base goes on";
}

} // namespace

TEST_F(Save, WritesNothingOverWhatAnotherHasChangedSinceAndTellsWhoDidIt) {
    Detalle();
    const Declaracion declaracion = Nueva();
    const auto graba = [&](const EstadoGuardado& conocido) {
        return GrabaDeclaracion(*base, declaracion, conocido, De(u"LUIS"_s));
    };
    const EstadoGuardado ninguna;
    const EstadoGuardado primera = Graba(declaracion).guardado;
    const struct {
        const char* cual;
        std::function<void()> hace;
        QString dice;
    } casos[] = {
        {"saved", [&] { ASSERT_TRUE(Graba(declaracion).veredicto); }, u"fue grabada por ANA en CAJA-2 el"_s},
        {"deleted", [&] { EliminaDeclaracion(*base, Formulario0518(), kClave, De(u"EVA"_s)); },
         u"fue eliminada por EVA en CAJA-2 el"_s},
        {"past the programs", [&] { base->Ejecuta(u"UPDATE CAB SET cNumero = 'x' || cNumero"_s); },
         u"fue cambiada por otro medio"_s},
        {"gone past the programs", [&] { base->Ejecuta(u"DELETE * FROM CAB"_s); }, u"fue quitada por otro medio"_s},
    };
    for (const auto& [cual, hace, dice] : casos) {
        SCOPED_TRACE(cual);
        const EstadoGuardado conocido = Graba(declaracion).guardado;
        hace();
        const QString antes = Retrato(*base);
        const ResultadoGrabacion resultado = graba(conocido);
        ASSERT_FALSE(resultado.veredicto);
        EXPECT_THAT(resultado.veredicto.Motivo().texto.toStdString(), testing::HasSubstr(dice.toStdString()));
        EXPECT_EQ(Retrato(*base), antes);
    }
    (void)Graba(declaracion);
    EXPECT_FALSE(graba(ninguna).veredicto) << "a new one over one that another has registered";
    EXPECT_FALSE(graba(primera).veredicto);
    EXPECT_TRUE(graba(EstadoGuardado::De(*base, kClave)).veredicto);
    Bitacora(*base).Anota(De(u"ANA"_s), {.suceso = Suceso::NumeroDeOrden,
                                         .clave = {.ruc = kClave.ruc,
                                                   .periodo = kClave.periodo,
                                                   .formulario = kClave.formulario,
                                                   .enviada = true,
                                                   .correl = u"1"_s}});
    EXPECT_TRUE(graba(EstadoGuardado::De(*base, kClave)).veredicto) << "what is done with a sent copy is another thing";
}

/// Even when both began before either had written.
TEST_F(Save, WaitsForAnotherSaveOfTheSameDeclaration) {
    if (!HayServidorDePrueba())
        GTEST_SKIP() << "a file has one writer";
    Detalle();
    const Declaracion declaracion = Nueva();
    const EstadoGuardado conocido = Graba(declaracion).guardado;
    const auto otra = Base::Abre(base.Ruta());
    Transaccion suya = otra->Comienza(Turno::Propio);
    otra->Ejecuta(u"UPDATE CAB SET cNumero = 'otro'"_s);
    ResultadoGrabacion resultado;
    std::jthread espera([&] {
        const auto propia = Base::Abre(base.Ruta());
        resultado = GrabaDeclaracion(*propia, declaracion, conocido, De(u"LUIS"_s));
    });
    while (base.Filas(u"SELECT 1 FROM pg_stat_activity WHERE wait_event_type = 'Lock'"
                      " AND datname = current_database()"_s)
               .isEmpty())
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    suya.Confirma();
    espera.join();
    EXPECT_FALSE(resultado.veredicto);
}
