#include "form518/UnsavedDeclaration.h"
#include "form518/Form0518.h"

#include "support/BaseFixture.h"

namespace {

class UnsavedDeclarationTest : public BaseDePrueba {
  protected:
    [[nodiscard]] SinGrabar Fila(const QString& escrito) const {
        return {.nueva = false,
                .clave = {.ruc = Ruc(u"20990518018"), .periodo = Periodo(2026, 10), .formulario = kNumFormulario},
                .guardado = EstadoGuardado::DeTexto(u"marca #000123"_s),
                .escrito = escrito,
                .usuario = u"ANA"_s,
                .equipo = u"CAJA-1"_s,
                .momento = m_ahora.addSecs(-60)};
    }
    void MeteDetalle(const QString& numero) {
        m_base.Agrega(u"TMPF518PCAB"_s, {{u"num_doc_per"_s, numero}});
        m_base.Agrega(u"TMPF518PDET"_s, {{u"num_doc_per"_s, numero}, {u"num_cp"_s, u"2"_s}, {u"tip_cp"_s, u""_s}});
        m_base.Agrega(u"TMPF518PDET"_s, {{u"num_doc_per"_s, numero}, {u"num_cp"_s, u"1"_s}, {u"tip_cp"_s, u""_s}});
        m_base.Agrega(u"TMPF518PDETCP"_s, {{u"num_doc_per"_s, numero}, {u"num_cp"_s, u"1"_s}});
    }
    [[nodiscard]] QString Detalle() {
        return Lista(u"SELECT num_doc_per FROM TMPF518PCAB"_s) + u"; "_s +
               Lista(u"SELECT num_cp FROM TMPF518PDET ORDER BY "_s + m_base->NumeroDeFila(u"TMPF518PDET"_s)) + u"; "_s +
               Lista(u"SELECT num_cp FROM TMPF518PDETCP"_s);
    }

    TablaSinGrabar m_tabla{*m_base};
    const QDateTime m_ahora{QDate(2026, 11, 22), QTime(8, 51)};
};

TEST_F(UnsavedDeclarationTest, StandsBesideTheWorkTablesAsOneRow) {
    EXPECT_FALSE(m_tabla.Lee());
    m_tabla.Escribe(Fila(u"{\"uno\":1}"_s));
    m_tabla.Escribe(Fila(u"{\"dos\":'2'}"_s));
    MeteDetalle(u"20500000007"_s);
    const FilaSinGrabar hallada = m_tabla.Lee().value();
    EXPECT_TRUE(hallada.esDeEstaVersion);
    EXPECT_EQ(hallada.fila.escrito, u"{\"dos\":'2'}"_s);
    EXPECT_EQ(hallada.fila.guardado, EstadoGuardado::DeTexto(u"marca #000123"_s));
    EXPECT_TRUE(hallada.fila.EsDe(Fila({}).clave) && !hallada.fila.nueva);
    EXPECT_EQ(Descripcion(*m_base, hallada.fila, m_tabla.Comprobantes()),
              u"20990518018, período 10/2026, con 2 comprobantes, del 22/11/2026 08:50"_s);
    m_base->Ejecuta(u"UPDATE TMPF518SINGRABAR SET Version = 99"_s);
    EXPECT_FALSE(m_tabla.Lee()->esDeEstaVersion);
    m_tabla.Quita();
    EXPECT_FALSE(m_tabla.Lee());
}

TEST_F(UnsavedDeclarationTest, IsPutAsideWithItsDetailAndComesBack) {
    m_tabla.Aparta(m_ahora); // there is nothing to put aside
    EXPECT_TRUE(m_tabla.Apartadas().isEmpty());
    MeteDetalle(u"20500000007"_s);
    const QString antes = Detalle();
    m_tabla.Escribe(Fila(u"primera"_s));
    m_tabla.Aparta(m_ahora);
    EXPECT_FALSE(m_tabla.Lee());
    m_tabla.Escribe(Fila(u"segunda"_s));
    m_tabla.Aparta(m_ahora);
    m_tabla.Escribe(Fila(u"ilegible"_s));
    m_tabla.Aparta(m_ahora, u"ilegible-20261122-085100"_s);

    m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s);
    m_base.Agrega(u"TMPF518PCAB"_s, {{u"num_doc_per"_s, u"20600000005"_s}});
    const QList<Apartada> apartadas = m_tabla.Apartadas();
    ASSERT_EQ(apartadas.size(), 2);
    EXPECT_EQ(apartadas[0].fila.escrito + u' ' + apartadas[1].fila.escrito, u"segunda primera"_s);
    EXPECT_EQ(apartadas[1].comprobantes, 2);
    EXPECT_EQ(apartadas[1].cuando, m_ahora);
    m_tabla.Devuelve(apartadas[1].copia);
    EXPECT_EQ(Detalle(), antes);
    EXPECT_EQ(m_tabla.Lee()->fila.escrito, u"primera"_s);
    EXPECT_EQ(m_tabla.Apartadas().size(), 1);
}

TEST_F(UnsavedDeclarationTest, StaysAsideForSevenDays) {
    MeteDetalle(u"20500000007"_s);
    for (const int dias : {8, 6}) {
        m_tabla.Escribe(Fila(QString::number(dias)));
        m_tabla.Aparta(m_ahora.addDays(-dias));
    }
    m_tabla.BorraViejas(m_ahora);
    ASSERT_EQ(m_tabla.Apartadas().size(), 1);
    EXPECT_EQ(m_tabla.Apartadas().first().fila.escrito, u"6"_s);
    EXPECT_EQ(Lista(u"SELECT count(*) FROM TMPF518APDET"_s), u"2"_s);
}

TEST_F(UnsavedDeclarationTest, WhatADialogHadHalfDoneIsCompletedAndTold) {
    MeteDetalle(u"20500000007"_s);
    m_base.Agrega(u"TMPF518PDET"_s, {{u"num_doc_per"_s, u"20600000005"_s},
                                     {u"tip_cp"_s, u""_s},
                                     {u"mto_base_p"_s, u"100.00"_s},
                                     {u"mto_imp_p"_s, u"2.00"_s}});
    m_base.Agrega(u"TMPF518PDETCP"_s, {{u"num_doc_per"_s, u"20500000007"_s}, {u"num_cp"_s, u"9"_s}});
    const DetalleCompletado completado = CompletaElDetalle(*m_base);
    EXPECT_EQ(completado.sinNombre, QStringList{u"20600000005"_s});
    EXPECT_EQ(completado.pagosSinComprobante, 1);
    EXPECT_EQ(Lista(u"SELECT ctd_docs & ' ' & mto_base_p & ' ' & mto_imp_p FROM TMPF518PCAB WHERE num_doc_per ="
                    " '20600000005'"_s),
              u"1 100 2"_s);
    const DetalleCompletado otraVez = CompletaElDetalle(*m_base);
    EXPECT_TRUE(otraVez.sinNombre.isEmpty()) << "it is done once";
}

} // namespace
