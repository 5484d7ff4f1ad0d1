#include "form518/Comparison.h"
#include "form518/Form0518.h"
#include "form518/WorkTables.h"
#include "values/Progress.h"

#include "support/BaseFixture.h"

namespace {

class ComparisonTest : public BaseDePrueba {
  protected:
    using Fila = QMap<QString, QVariant>;

    /// A row of the sent copy.
    void Envia(const QString& tabla, Fila fila) {
        fila.insert({{u"Doc_id_d"_s, m_enviada.ruc.Texto()},
                     {u"periodo"_s, m_enviada.periodo.Texto()},
                     {u"correl"_s, m_enviada.correl}});
        m_base.Agrega(m_enviada.Tabla(tabla), fila);
    }
    void EnviaCliente(const QString& numero, const QString& razon, const QString& monto) {
        Envia(u"F518PCAB"_s, {{u"num_doc_per"_s, numero},
                              {u"des_razon"_s, razon},
                              {u"mto_base_p"_s, monto},
                              {u"mto_imp_p"_s, u"2.00"_s}});
        Envia(u"F518PDET"_s, {{u"num_doc_per"_s, numero}, {u"num_cp"_s, u"1"_s}, {u"mto_base_p"_s, monto}});
        Envia(u"F518PDETCP"_s, {{u"num_doc_per"_s, numero}, {u"num_cp"_s, u"1"_s}, {u"mto_detcp"_s, u"9.50"_s}});
    }
    void EnviaUna() {
        m_base.Agrega(u"HCAB"_s, {{u"Doc_id_d"_s, m_enviada.ruc.Texto()},
                                  {u"periodo"_s, m_enviada.periodo.Texto()},
                                  {u"correl"_s, m_enviada.correl},
                                  {u"fec_env"_s, u"02/11/2026"_s}});
        EnviaCliente(u"20111111111"_s, u"UNO S.A."_s, u"100.00"_s);
        EnviaCliente(u"20222222222"_s, u"DOS S.A."_s, u"200.00"_s);
        EnviaCliente(u"20333333333"_s, u"TRES S.A."_s, u"300.00"_s);
        Envia(u"F518PDETVC"_s, {{u"num_doc_per"_s, u"20333333333"_s},
                                {u"num_cp"_s, u"8"_s},
                                {u"tip_cp"_s, u"03"_s},
                                {u"mto_base_p"_s, u"5.00"_s}});
        for (const auto& [casilla, valor] :
             {std::pair(u"401"_s, u"6"_s), std::pair(u"402"_s, u"-300"_s), std::pair(u"871"_s, u"0"_s),
              std::pair(u"999"_s, u"E"_s), std::pair(u"015"_s, u"2"_s), std::pair(u"517"_s, u"29"_s),
              std::pair(u"510"_s, u"3"_s), std::pair(u"511"_s, u"600"_s), std::pair(u"513"_s, u"1"_s),
              std::pair(u"514"_s, u"5"_s), std::pair(u"516"_s, u"3"_s), std::pair(u"512"_s, u"0"_s),
              std::pair(u"515"_s, u"0"_s)})
            Envia(u"DET"_s, {{u"Casilla"_s, casilla}, {u"i_valor"_s, valor}});
    }

    [[nodiscard]] Comparacion ComparaAbierta(const ValoresDeCasillas& casillas) {
        SinAvance nadie;
        return Compara(*m_base, {.copia = *UltimaCopia(*m_base, m_clave), .abierta = casillas}, nadie);
    }
    /// "class number name before>after vouchers/payments".
    static QString Clientes(const Comparacion& comparacion) {
        QStringList lineas;
        for (const ClienteComparado& cliente : comparacion.clientes)
            lineas.append(u"%1 %2 %3 %4>%5 %6/%7"_s.arg(Palabra(cliente.clase), cliente.numero.left(3), cliente.nombre,
                                                        cliente.antes.base.Texto(), cliente.despues.base.Texto(),
                                                        cliente.comprobantes.Texto(), cliente.pagos.Texto()));
        return lineas.join(u'|');
    }
    static QString Casillas(const Comparacion& comparacion) {
        QStringList lineas;
        for (const CasillaComparada& una : comparacion.casillas)
            if (una.Cambia())
                lineas.append(u"%1 %2>%3 %4"_s.arg(una.casilla).arg(una.antes, una.despues, una.diferencia));
        return lineas.join(u'|');
    }

    const ValoresDeCasillas m_comoSeEnvio{
        {401, u"6"_s}, {402, u"(300)"_s}, {871, u"0"_s}, {999, u"E"_s}, {15, u"02"_s}};
    const ClaveDeclaracion m_clave{
        .ruc = Ruc(u"20555123451"), .periodo = Periodo(2026, 10), .formulario = kNumFormulario};
    const ClaveDeclaracion m_enviada{.ruc = m_clave.ruc,
                                     .periodo = m_clave.periodo,
                                     .formulario = m_clave.formulario,
                                     .enviada = true,
                                     .correl = u"3"_s};
};

TEST_F(ComparisonTest, WhatWasBroughtAndNotTouchedDoesNotDiffer) {
    EnviaUna();
    TablasTrabajo(*m_base).Reconstruye(m_enviada);
    m_base->Ejecuta(u"UPDATE TMPF518PDET SET mto_base_p = '100' WHERE num_doc_per = '20111111111'"_s);
    const Comparacion igual = ComparaAbierta(m_comoSeEnvio);
    EXPECT_EQ(Clientes(igual) + Casillas(igual), QString()) << "an amount is what it is worth, however it is written";
    EXPECT_FALSE(igual.HayCambios());
    EXPECT_TRUE(ComparaAbierta({}).HayCambios()) << "without its boxes it is another declaration";
}

TEST_F(ComparisonTest, EveryDifferenceOfTheOpenDeclarationIsTold) {
    EnviaUna();
    TablasTrabajo(*m_base).Reconstruye(m_enviada);
    m_base->Ejecuta(u"UPDATE TMPF518PDET SET fec_emision_cp = '05/10/2026' WHERE num_doc_per = '20111111111'"_s);
    TablasTrabajo(*m_base).EliminaCliente({CodigoDocumento(6), u"20222222222"_s});
    m_base->Ejecuta(u"UPDATE TMPF518PCAB SET mto_base_p = '295.50' WHERE num_doc_per = '20333333333'"_s);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDET WHERE tip_cp <> ''"_s);
    m_base->Ejecuta(u"UPDATE TMPF518PDETCP SET num_detcp = '77' WHERE num_doc_per = '20333333333'"_s);
    m_base.Agrega(u"TMPF518PCAB"_s, {{u"num_doc_per"_s, u"20444444444"_s}, {u"des_razon"_s, u"CUATRO S.A."_s}});
    m_base.Agrega(u"TMPF518PDET"_s, {{u"num_doc_per"_s, u"20555555555"_s}, {u"tip_cp"_s, u""_s}});

    ValoresDeCasillas casillas = m_comoSeEnvio;
    casillas.insert({{401, u"1,004"_s}, {402, {}}, {871, u"1"_s}, {999, u"C"_s}});
    const Comparacion distinta = ComparaAbierta(casillas);
    EXPECT_EQ(Clientes(distinta), u"Cambiado 201 UNO S.A. 100>100 ~1/|Quitado 202 DOS S.A. 200>0 -1/-1|"
                                  "Cambiado 203 TRES S.A. 300>295.5 -1/+1 -1|Agregado 204 CUATRO S.A. 0>0 /|"
                                  "Cambiado 205  0>0 +1/"_s);
    EXPECT_EQ(Casillas(distinta),
              u"401 6>1,004 +998|402 300> -300|511 600>400 -200|513 1>0 -1|514 5>0 -5|516 3>2 -1|517 29>19 -10|"
              "871 No>Sí |999 Efectivo>Cheque "_s);
    const Comparacion::Resumen cambiados = distinta.De(ClaseDeCambio::Cambiado);
    EXPECT_EQ(cambiados.clientes, 3);
    EXPECT_EQ(cambiados.diferencia.base, Importe::Valor(u"-4.5"));
    EXPECT_EQ(distinta.De(ClaseDeCambio::Quitado).diferencia.percepcion, Importe::Valor(u"-2"));
}

TEST_F(ComparisonTest, TheRegisteredDeclarationIsComparedWithTheLastCopyOfItsMonth) {
    EnviaUna();
    for (const QString& otra : {u"2"_s, u"10"_s})
        m_base.Agrega(
            u"HCAB"_s,
            {{u"Doc_id_d"_s, m_clave.ruc.Texto()}, {u"periodo"_s, m_clave.periodo.Texto()}, {u"correl"_s, otra}});
    EXPECT_EQ(UltimaCopia(*m_base, m_clave)->clave.correl, u"10"_s) << "by its number, not by its letters";
    const std::optional<CopiaEnviada> copia = LaCopia(*m_base, m_enviada);
    ASSERT_TRUE(copia);
    EXPECT_EQ(copia->Texto(), u"copia 3, enviada el 02/11/2026"_s);
    m_base.Agrega(u"F518PCAB"_s, {{u"Doc_id_d"_s, m_clave.ruc.Texto()},
                                  {u"periodo"_s, m_clave.periodo.Texto()},
                                  {u"num_doc_per"_s, u"20111111111"_s},
                                  {u"des_razon"_s, u"UNO S.A.C."_s},
                                  {u"mto_base_p"_s, u"100"_s},
                                  {u"mto_imp_p"_s, u"2"_s}});
    SinAvance nadie;
    const Comparacion distinta = Compara(*m_base, {.copia = *copia}, nadie);
    EXPECT_EQ(Clientes(distinta), u"Cambiado 201 UNO S.A.C. 100>100 -1/-1|Quitado 202 DOS S.A. 200>0 -1/-1|"
                                  "Quitado 203 TRES S.A. 300>0 -2/-1"_s);
    EXPECT_TRUE(distinta.clientes.constFirst().otroNombre);
}

} // namespace
