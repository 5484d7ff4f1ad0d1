#include "DataFixture.h"

#include "data/WorkTables.h"

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

const QString kClave = u"tip_doc_d INTEGER, Doc_id_d TEXT, periodo TEXT, Formulario TEXT, "_s;
const QString kCorrel = u"correl TEXT, "_s;
const QString kCliente = u"tip_doc_per INTEGER, num_doc_per TEXT, "_s;
const QString kNombres = u"des_razon TEXT, des_apellido_p TEXT, des_apellido_m TEXT, des_nombres TEXT, "_s;
const QString kMontos = u"mto_base_p TEXT, mto_imp_p TEXT"_s;
const QString kComprobante = u"num_serie_cp TEXT, num_cp TEXT, "_s;
const QString kRespuestas = u"cp_fact TEXT, lista_clie TEXT, med_pago TEXT, fec_emision_cp TEXT, "_s;
const QString kPago =
    u"tip_doc_detcp TEXT, num_serie_detcp TEXT, num_detcp TEXT, fec_emis_detcp TEXT, mto_detcp TEXT"_s;
const QString kSuma = u", cNumero TEXT"_s;

class WorkTablesTest : public BaseDePrueba {
  protected:
    WorkTablesTest() {
        const QString tasa = kMontos + u", por_tasa_p TEXT"_s;
        for (const QString& h : {u""_s, u"H"_s}) {
            const QString clave = kClave + (h.isEmpty() ? u""_s : kCorrel);
            Crea(h + u"F518PCAB"_s,
                 clave + kCliente + kNombres + u"ctd_docs INTEGER, "_s + kMontos + u", ind_ruc INTEGER"_s + kSuma);
            Crea(h + u"F518PDET"_s, clave + kCliente + kComprobante + kRespuestas + tasa + kSuma);
            Crea(h + u"F518PDETVC"_s,
                 clave + kCliente + kComprobante + u"tip_cp TEXT, "_s + kRespuestas + tasa + kSuma);
            Crea(h + u"F518PDETCP"_s, clave + kCliente + kComprobante + kPago + kSuma);
        }
        Crea(u"TMPF518PCAB"_s, kCliente + kNombres + u"ctd_docs TEXT, "_s + kMontos);
        Crea(u"TMPF518PDET"_s, kCliente + kComprobante + u"tip_cp TEXT, "_s + kRespuestas + tasa);
        Crea(u"TMPF518PDETCP"_s, kCliente + kComprobante + kPago);
    }
    void Crea(const QString& tabla, const QString& columnas) {
        m_base->Ejecuta(u"CREATE TABLE "_s + tabla + u" ("_s + columnas + u")"_s);
    }
    void Mete(const QString& tabla, const QString& columnas, const QString& filas) {
        m_base->Ejecuta(u"INSERT INTO "_s + tabla + u" ("_s + columnas + u") VALUES "_s + filas);
    }
    void MeteDeclaracion() {
        const QString clave = u"tip_doc_d, Doc_id_d, periodo, Formulario, "_s;
        Mete(u"F518PCAB"_s,
             clave + u"tip_doc_per, num_doc_per, des_razon, des_apellido_p, des_apellido_m, des_nombres, ctd_docs"_s,
             u"(6,'20555123451','202405','0518', 6,'20444123450','Empresa ''X''',NULL,NULL,NULL,4),"
             "(6,'20555123451','202405','0518', 6,'10444123451',NULL,'ROJAS',NULL,'LUZ',2),"
             "(6,'20555123451','202405','0518', 1,'20345678',NULL,'APELLIDO PATERNO LARGO','APELLIDO MATERNO','N',1),"
             "(6,'20555123451','202406','0518', 1,'99999999','OTRO PERIODO',NULL,NULL,NULL,1),"
             "(6,'20555123459','202405','0518', 1,'99999998','OTRO RUC',NULL,NULL,NULL,1),"
             "(1,'20555123451','202405','0518', 1,'99999997','OTRO TIPO',NULL,NULL,NULL,1)"_s);
        Mete(u"F518PDET"_s, clave + u"tip_doc_per, num_doc_per, num_cp, cp_fact, mto_imp_p"_s,
             u"(6,'20555123451','202405','0518', 6,'20444123450','1','1','2.00'),"
             "(6,'20555123451','202405','0518', 6,'20444123450','2',NULL,NULL)"_s);
        Mete(u"F518PDETVC"_s, clave + u"tip_doc_per, num_doc_per, num_cp, tip_cp"_s,
             u"(6,'20555123451','202405','0518', 6,'20444123450','3','12')"_s);
        Mete(u"F518PDETCP"_s, clave + u"tip_doc_per, num_doc_per, num_cp, mto_detcp"_s,
             u"(6,'20555123451','202405','0518', 6,'20444123450','1','100.00'),"
             "(1,'20555123451','202405','0518', 6,'20444123450','2','-5.00'),"
             "(6,'20555123451','202405','0275', 6,'20444123450','3','7.00')"_s);
    }
    [[nodiscard]] QString Trabajo() {
        return Lista(u"SELECT num_doc_per FROM TMPF518PCAB"_s) + u"; "_s +
               Lista(u"SELECT num_cp & ' ' & tip_cp FROM TMPF518PDET"_s) + u"; "_s +
               Lista(u"SELECT num_cp & ' ' & mto_detcp FROM TMPF518PDETCP"_s);
    }
    TablasTrabajo m_tablas{*m_base};
    const ClaveDeclaracion m_clave{u"20555123451"_s, u"202405"_s, kNumFormulario, false, {}};
};

TEST_F(WorkTablesTest, AreRebuiltFromTheRegisteredDeclaration) {
    MeteDeclaracion();
    Mete(u"TMPF518PCAB"_s, u"num_doc_per"_s, u"('viejo')"_s);
    Mete(u"TMPF518PDET"_s, u"num_doc_per"_s, u"('viejo')"_s);
    Mete(u"TMPF518PDETCP"_s, u"num_doc_per"_s, u"('viejo')"_s);
    m_tablas.Reconstruye(m_clave);
    // The payment vouchers are found without the declarant's type, the others with it.
    EXPECT_EQ(Trabajo(), u"20444123450|10444123451|20345678; 1 |2 |3 12; 1 100.00|2 -5.00"_s);
    // A person's full name is put together again, nulls as nothing, cut at forty.
    EXPECT_EQ(Lista(u"SELECT des_razon FROM TMPF518PCAB"_s),
              u"Empresa 'X'|ROJAS  LUZ|APELLIDO PATERNO LARGO APELLIDO MATERNO "_s);
    EXPECT_EQ(Lista(u"SELECT des_apellido_p FROM TMPF518PCAB"_s), u"NULL|ROJAS|APELLIDO PATERNO LARGO"_s);
    EXPECT_EQ(Lista(u"SELECT num_cp FROM TMPF518PDET WHERE TIP_CP = ''"_s), u"1|2"_s);
    EXPECT_EQ(Lista(u"SELECT cp_fact FROM TMPF518PDET"_s), u"1|NULL|NULL"_s);
    EXPECT_EQ(m_tablas.CuentaDocs(6, u"20444123450"_s), 3); // cash sales count
    EXPECT_EQ(m_tablas.CuentaDocs(1, u"20444123450"_s), 0);
}

TEST_F(WorkTablesTest, AreRebuiltFromOneSentCopy) {
    MeteDeclaracion();
    for (const QString& tabla : {u"F518PCAB"_s, u"F518PDET"_s, u"F518PDETVC"_s, u"F518PDETCP"_s})
        Mete(u'H' + tabla,
             u"tip_doc_d, Doc_id_d, periodo, Formulario, correl, tip_doc_per, num_doc_per, num_cp"_s.chopped(
                 tabla == u"F518PCAB" ? 8 : 0),
             tabla == u"F518PCAB" ? u"(6,'20555123451','202405','0518','1',6,'20111'),"
                                    "(6,'20555123451','202405','0518','2',6,'20222')"_s
                                  : u"(6,'20555123451','202405','0518','1',6,'20111','a'),"
                                    "(6,'20555123451','202405','0518','2',6,'20222','b')"_s);
    ClaveDeclaracion enviada = m_clave;
    enviada.enviada = true;
    enviada.correl = u"2"_s;
    m_tablas.Reconstruye(enviada);
    EXPECT_EQ(Trabajo(), u"20222; b |b ; b "_s);
}

TEST_F(WorkTablesTest, AreEmptiedByANewDeclarationButNotByAFailure) {
    MeteDeclaracion();
    m_tablas.Reconstruye(m_clave);
    const QString antes = Trabajo();
    m_base->Ejecuta(u"ALTER TABLE F518PDETCP RENAME TO GUARDADA"_s);
    EXPECT_EQ(NumeroDe([&] { m_tablas.Reconstruye({}); }), 3011);
    EXPECT_EQ(Trabajo(), antes);
    m_base->Ejecuta(u"ALTER TABLE GUARDADA RENAME TO F518PDETCP"_s);
    m_tablas.Reconstruye({});
    EXPECT_EQ(Trabajo(), u"; ; "_s);
}

TEST_F(WorkTablesTest, BringTheClientsToTheSumsOfTheirVouchers) {
    Mete(u"TMPF518PCAB"_s, u"tip_doc_per, num_doc_per, mto_base_p"_s,
         u"(1,'1','77'),(1,'2','77'),(1,'3','77'),(6,'1','77'),(1,'O''X','77')"_s);
    Mete(u"TMPF518PDET"_s, u"tip_doc_per, num_doc_per, tip_cp, mto_base_p, mto_imp_p"_s,
         u"(1,'1','','0.1','0.01'),(1,'1','12','0.2','0.02'),(1,'1','',NULL,NULL),"
         "(1,'2','','-100.5','-2.01'),(1,'2','','50','3'),"
         "(6,'1','','9999999999.99','1'),(1,'O''X','','5','0.105')"_s);
    m_tablas.CalculaTotales();
    EXPECT_EQ(Lista(u"SELECT mto_base_p & '/' & mto_imp_p FROM TMPF518PCAB"_s),
              u"0.3/0.03|0/0.99|0/0|9999999999.99/1|5/0.105"_s);
    const TablasTrabajo::Totales totales = m_tablas.TotalesDeClientes();
    EXPECT_EQ(totales.base.Texto(), u"10000000005.29"_s);
    EXPECT_EQ(totales.percepcion.Texto(), u"2.13"_s); // 0.105 is 0.11 before it is added
}

TEST_F(WorkTablesTest, LoseAClientWithAllThatHangsOnIt) {
    MeteDeclaracion();
    m_tablas.Reconstruye(m_clave);
    Mete(u"TMPF518PCAB"_s, u"tip_doc_per, num_doc_per"_s, u"(1,'20444123450')"_s);
    Mete(u"TMPF518PDET"_s, u"tip_doc_per, num_doc_per, num_cp, tip_cp"_s, u"(1,'20444123450','9','')"_s);
    m_tablas.EliminaCliente(6, u"20444123450"_s);
    EXPECT_EQ(Trabajo(), u"10444123451|20345678|20444123450; 9 ; "_s);
    EXPECT_EQ(Lista(u"SELECT count(*) FROM F518PCAB"_s), u"6"_s); // the saved rows are nobody's business here
}

} // namespace
} // namespace xa518
