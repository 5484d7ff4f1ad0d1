#include "form518/WorkTables.h"
#include "form518/Form0518.h"

#include "support/BaseFixture.h"

namespace {

class WorkTablesTest : public BaseDePrueba {
  protected:
    /// A row of the declaration, unless the values say that it is another's.
    void Registra(const QString& tabla, const QString& numero, QMap<QString, QVariant> valores) {
        valores.insert({{u"Doc_id_d"_s, valores.value(u"Doc_id_d"_s, m_clave.ruc.Texto())},
                        {u"periodo"_s, valores.value(u"periodo"_s, m_clave.periodo.Texto())},
                        {u"num_doc_per"_s, numero}});
        m_base.Agrega(tabla, valores);
    }
    void MeteDeclaracion() {
        Registra(u"F518PCAB"_s, u"20444123450"_s, {{u"des_razon"_s, u"Empresa 'X'"_s}});
        Registra(u"F518PCAB"_s, u"10444123451"_s, {{u"des_apellido_p"_s, u"ROJAS"_s}, {u"des_nombres"_s, u"LUZ"_s}});
        Registra(u"F518PCAB"_s, u"20345678"_s,
                 {{u"tip_doc_per"_s, 1},
                  {u"des_apellido_p"_s, u"APELLIDO PATERNO LARGO"_s},
                  {u"des_apellido_m"_s, u"APELLIDO MATERNO"_s},
                  {u"des_nombres"_s, u"N"_s}});
        Registra(u"F518PCAB"_s, u"99999999"_s, {{u"periodo"_s, u"202406"_s}});
        Registra(u"F518PCAB"_s, u"99999998"_s, {{u"Doc_id_d"_s, u"20555123459"_s}});
        Registra(u"F518PCAB"_s, u"99999997"_s, {{u"tip_doc_d"_s, 1}});
        const QString cliente = u"20444123450"_s;
        Registra(u"F518PDET"_s, cliente, {{u"num_cp"_s, u"1"_s}, {u"cp_fact"_s, u"1"_s}});
        Registra(u"F518PDET"_s, cliente, {{u"num_cp"_s, u"2"_s}});
        Registra(u"F518PDETVC"_s, cliente, {{u"num_cp"_s, u"3"_s}, {u"tip_cp"_s, u"12"_s}});
        Registra(u"F518PDETCP"_s, cliente, {{u"num_cp"_s, u"1"_s}, {u"mto_detcp"_s, u"100.00"_s}});
        Registra(u"F518PDETCP"_s, cliente, {{u"tip_doc_d"_s, 1}, {u"num_cp"_s, u"2"_s}, {u"mto_detcp"_s, u"-5.00"_s}});
        Registra(u"F518PDETCP"_s, cliente, {{u"Formulario"_s, u"0275"_s}, {u"num_cp"_s, u"3"_s}});
    }
    [[nodiscard]] QString Trabajo() {
        return Lista(u"SELECT num_doc_per FROM TMPF518PCAB ORDER BY num_doc_per DESC, tip_doc_per"_s) + u"; "_s +
               Lista(u"SELECT num_cp & ' ' & tip_cp FROM TMPF518PDET"_s) + u"; "_s +
               Lista(u"SELECT num_cp & ' ' & mto_detcp FROM TMPF518PDETCP"_s);
    }
    TablasTrabajo m_tablas{*m_base};
    const ClaveDeclaracion m_clave{
        .ruc = Ruc(u"20555123451"), .periodo = Periodo(2024, 5), .formulario = kNumFormulario};
};

TEST_F(WorkTablesTest, AreRebuiltFromTheRegisteredDeclaration) {
    MeteDeclaracion();
    for (const QString& tabla : {u"TMPF518PCAB"_s, u"TMPF518PDET"_s, u"TMPF518PDETCP"_s})
        m_base.Agrega(tabla, {{u"num_doc_per"_s, u"viejo"_s}});
    m_tablas.Reconstruye(m_clave);
    // The payment vouchers are found without the declarant's type, the others with it.
    EXPECT_EQ(Trabajo(), u"20444123450|20345678|10444123451; 1 |2 |3 12; 1 100.00|2 -5.00"_s);
    // A person's full name is put together again, nulls as nothing, cut at forty.
    EXPECT_EQ(Lista(u"SELECT des_razon FROM TMPF518PCAB ORDER BY num_doc_per DESC, tip_doc_per"_s),
              u"Empresa 'X'|APELLIDO PATERNO LARGO APELLIDO MATERNO |ROJAS  LUZ"_s);
    EXPECT_EQ(Lista(u"SELECT des_apellido_p FROM TMPF518PCAB ORDER BY num_doc_per DESC, tip_doc_per"_s),
              u"<null>|APELLIDO PATERNO LARGO|ROJAS"_s);
    EXPECT_EQ(Lista(u"SELECT num_cp FROM TMPF518PDET WHERE TIP_CP = ''"_s), u"1|2"_s);
    EXPECT_EQ(Lista(u"SELECT cp_fact FROM TMPF518PDET"_s), u"1|<null>|<null>"_s);
    EXPECT_EQ(m_tablas.CuentaDocs({CodigoDocumento(6), u"20444123450"_s}), 3); // cash sales count
    EXPECT_EQ(m_tablas.CuentaDocs({CodigoDocumento(1), u"20444123450"_s}), 0);
}

TEST_F(WorkTablesTest, AreRebuiltFromOneSentCopy) {
    MeteDeclaracion();
    for (const QString& correl : {u"1"_s, u"2"_s}) {
        for (const QString& tabla : {u"HF518PDET"_s, u"HF518PDETVC"_s, u"HF518PDETCP"_s})
            Registra(tabla, u"20111"_s, {{u"correl"_s, correl}, {u"num_cp"_s, u"cp"_s + correl}});
        Registra(u"HF518PCAB"_s, u"20111"_s + correl, {{u"correl"_s, correl}});
    }
    ClaveDeclaracion enviada = m_clave;
    enviada.enviada = true;
    enviada.correl = u"2"_s;
    m_tablas.Reconstruye(enviada);
    EXPECT_EQ(Trabajo(), u"201112; cp2 |cp2 -; cp2 "_s);
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
    m_base->Ejecuta(u"INSERT INTO TMPF518PCAB (tip_doc_per, num_doc_per, mto_base_p) VALUES "
                    "(1,'1','77'),(1,'2','77'),(1,'3','77'),(6,'1','77'),(1,'O''X','77')"_s);
    m_base->Ejecuta(u"INSERT INTO TMPF518PDET (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp, mto_base_p, "
                    "mto_imp_p) VALUES "
                    "(1,'1','','1','','0.1','0.01'),(1,'1','','1','12','0.2','0.02'),(1,'1','','2','',NULL,NULL),"
                    "(1,'2','','1','','-100.5','-2.01'),(1,'2','','2','','50','3'),"
                    "(6,'1','','1','','9999999999.99','1'),(1,'O''X','','1','','5','0.105')"_s);
    m_tablas.CalculaTotales();
    EXPECT_EQ(Lista(u"SELECT mto_base_p & '/' & mto_imp_p FROM TMPF518PCAB ORDER BY num_doc_per DESC, tip_doc_per"_s),
              u"5/0.105|0/0|0/0.99|0.3/0.03|9999999999.99/1"_s);
    const TablasTrabajo::Totales totales = m_tablas.TotalesDeClientes();
    EXPECT_EQ(totales.base.Texto(), u"10000000005.29"_s);
    EXPECT_EQ(totales.percepcion.Texto(), u"2.13"_s); // 0.105 is 0.11 before it is added
}

TEST_F(WorkTablesTest, LoseAClientWithAllThatHangsOnIt) {
    MeteDeclaracion();
    m_tablas.Reconstruye(m_clave);
    m_base.Agrega(u"TMPF518PCAB"_s, {{u"tip_doc_per"_s, 1}, {u"num_doc_per"_s, u"20444123450"_s}});
    m_base.Agrega(u"TMPF518PDET"_s,
                  {{u"tip_doc_per"_s, 1}, {u"num_doc_per"_s, u"20444123450"_s}, {u"num_cp"_s, u"9"_s}});
    m_tablas.EliminaCliente({CodigoDocumento(6), u"20444123450"_s});
    EXPECT_EQ(Trabajo(), u"20444123450|20345678|10444123451; 9 -; "_s);
    EXPECT_EQ(Lista(u"SELECT count(*) FROM F518PCAB"_s), u"6"_s); // the saved rows are nobody's business here
}

} // namespace
