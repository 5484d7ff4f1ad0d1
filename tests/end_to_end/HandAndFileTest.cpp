#include "declaration/ClientGrid.h"
#include "declaration/Save.h"
#include "detail/DetailFixture.h"
#include "detail/FrmAgePer.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "import/Formats.h"
#include "import/ImportFile.h"
#include "import/ImportRun.h"

namespace {

class SinPausa final : public ObservadorImportacion {
    bool Sigue(const AvanceImportacion& /*avance*/) override { return true; }
};

class HandAndFileTest : public DetailTest {
  protected:
    /// A client with one voucher, and that with its payment vouchers, each given by what is typed. A cash sale has
    /// none.
    void Entra(const QString& cliente, const QString& comprobante, const QStringList& pagos) {
        FrmAgePer forma(m_entorno, ModoDetalle::Nuevo);
        Muestra(forma);
        for (qsizetype i = 0; i < pagos.size(); ++i)
            m_avisos.Espera(u"La información se grabó satisfactoriamente"_s);
        AlAbrir(u"FrmDetAgePer"_s, [&](QWidget& detalle) {
            Teclea(comprobante);
            if (!pagos.isEmpty()) {
                AlAbrir(u"frmPerDet"_s, [&](QWidget& dialogo) {
                    for (const QString& pago : pagos)
                        Teclea(pago);
                    dialogo.close();
                });
                Teclea(u"\r"_s);
            }
            De<QPushButton>(detalle, "CmdOpciones_0").click();
        });
        Teclea(cliente + u"\r\r"_s);
        De<QPushButton>(forma, "CmdAceptar").click();
        EXPECT_FALSE(forma.isVisible());
    }
    /// Saves what the work tables hold, gives all that is stored of it, and leaves nothing of it behind.
    QString Graba() {
        Declaracion declaracion;
        declaracion.clave = m_clave;
        RefrescaTotales(*m_base, declaracion);
        declaracion.pago.forma = FormaDePago::Efectivo;
        declaracion.rectifica = Rectificacion::No;
        (void)GrabaDeclaracion(*m_base, declaracion, EstadoGuardado::De(*m_base, m_clave), FirmaDe(u"ANA"_s, m_reloj));
        const QString retrato = Retrato(*m_base);
        for (const QString& tabla : kTablas + QStringList{u"TMPF518PCAB"_s, u"TMPF518PDET"_s, u"TMPF518PDETCP"_s})
            m_base->Ejecuta(u"DELETE * FROM "_s + tabla);
        return retrato;
    }
    /// Boxes, rows and checksums of a declaration don't tell how it was entered: these lines give what was typed.
    void EsLoMismo(const QStringList& lineas, const FormatoImportacion& formato, int filas) {
        const auto trabajo = [this] {
            return m_base.Filas(u"SELECT * FROM TMPF518PDET UNION ALL "
                                "SELECT *, '', '', '' FROM TMPF518PDETCP"_s);
        };
        const QStringList aMano = trabajo();
        EXPECT_EQ(aMano.size(), filas);
        const QString grabadoAMano = Graba();
        EscribeEn(m_base.Carpeta() + u'/' + NombreDeArchivo(m_clave, formato), lineas.join(u'\n').toUtf8());
        Proceso proceso(m_reloj, {Formulario0518()}, kNumFormulario);
        proceso.rutaRPT = m_base.Carpeta() + u"/RPT"_s;
        proceso.fechaPrimerIgv = m_entorno.primerIgv;
        proceso.baseDatos = Base::Abre(m_base.Ruta());
        SinPausa observador;
        (void)Transferencia(proceso, m_clave, formato, m_base.Carpeta()).Corre(observador);
        EXPECT_EQ(trabajo(), aMano);
        EXPECT_EQ(Graba(), grabadoAMano);
    }

    const ClaveDeclaracion m_clave{
        .ruc = m_entorno.declarante, .periodo = m_entorno.declarado, .formulario = kNumFormulario};
};

TEST_F(HandAndFileTest, TheSameContentIsStoredAlike) {
    Entra(u"06\r"_s + kEmpresa + u"\racme"_s, u"\rP001\r1\r15102026\r1000.55\rs\rn\rn\r"_s,
          {u"01F001\r77\r10102026\r1299.17\r\r"_s, u"07F001\r5\r12092026\r118.59\r\r"_s});
    Entra(u"01\r45678901\rquispe\rrojas\rmaria"_s, u"\rP001\r2\r16102026\r100.25\rn\rs\rs\r"_s,
          {u"031\r9\r31122009\r118.01\r\r"_s});
    EsLoMismo({u"06|20500000008|Acme||||P001|1|15/10/2026|1|0|0|1000.55|01|F001|77|10/10/2026|1299.17|"_s,
               u"06|20500000008|Acme||||P001|1|15/10/2026|1|0|0|1000.55|07|F001|5|12/09/2026|118.59|"_s,
               u"01|45678901||Quispe|Rojas|Maria|P001|2|16/10/2026|0|1|1|100.25|03|1|9|31/12/2009|118.01|"_s},
              FormatoPercepciones(), 5);
}

TEST_F(HandAndFileTest, TheSameCashSalesAreStoredAlike) {
    Entra(u"06\r"_s + kEmpresa + u"\racme"_s, u"s\r01F001\r7\r15102026\r1000.55\rs\rn\r"_s, {});
    Entra(u"01\r45678901\rquispe\rrojas\rmaria"_s, u"s\r03B001\r8\r16102026\r100.25\rn\rs\r"_s, {});
    EsLoMismo({u"06|20500000008|Acme||||F001|7|15/10/2026|1|0|1|1000.55|01|"_s,
               u"01|45678901||Quispe|Rojas|Maria|B001|8|16/10/2026|0|1|0|100.25|03|"_s},
              FormatoVentas(), 2);
}

} // namespace
