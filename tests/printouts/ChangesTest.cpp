#include "printouts/FrmCambios.h"
#include "printouts/PrintOutFixture.h"
#include "printouts/RunReport.h"
#include "printouts/ShowChanges.h"
#include "reports/ReportFormsFixture.h"

#include <QLabel>
#include <QTableView>

namespace {

/// A registered declaration of two clients, and the copy in which there was another one, and less of the first.
class ChangesTest : public FormasDeInformesTest<Taller> {
  protected:
    void SetUp() override {
        m_taller.Cabecera({{u"401"_s, u"30"_s}, {u"501"_s, u"2"_s}, {u"999"_s, u"C"_s}}, u"0045"_s, u"1"_s);
        m_taller.Cliente(u"20512345671"_s, u"BODEGA RIO SECO"_s, Montos(u"1000.50"_s));
        m_taller.Comprobante(u"20512345671"_s, u"00000007"_s);
        m_taller.Cliente(u"20512345672"_s, u"FERRETERIA LOMAS"_s, Montos(u"20.00"_s));
        m_taller.clave.enviada = true;
        m_taller.clave.correl = u"1"_s;
        m_taller.Cabecera({{u"401"_s, u"10"_s}, {u"501"_s, u"2"_s}, {u"999"_s, u"E"_s}});
        m_taller.Cliente(u"20512345671"_s, u"BODEGA RIO SECO"_s, Montos(u"900.25"_s));
        m_taller.Cliente(u"20512345673"_s, u"MOLINO ALTO"_s, Montos(u"5.00"_s));
    }
    static Columnas Montos(const QString& cobrado) { return {{u"mto_base_p"_s, cobrado}, {u"mto_imp_p"_s, u"1.00"_s}}; }

    [[nodiscard]] PedidoDeComparacion Pedido() {
        return {.copia = *LaCopia(*m_taller.proceso.baseDatos, m_taller.clave), .nombre = u"COMERCIAL DEL VALLE"_s};
    }
    static QString Fila(const QTableView& grilla, int fila) {
        QStringList celdas;
        for (int columna = 0; columna < grilla.model()->columnCount(); ++columna)
            celdas.append(grilla.model()->index(fila, columna).data().toString());
        return celdas.join(u'|');
    }
};

TEST_F(ChangesTest, ShowsWhatDiffersAndPrintsIt) {
    QWidget detras;
    Muestra(detras);
    EsperaEnvio(u"1 página"_s);
    AlAbrir(u"FrmCambios", [&](QWidget& forma) {
        EXPECT_TRUE(De<QLabel>(forma, "LblCopia")
                        .text()
                        .contains(u"COMERCIAL DEL VALLE, período 01/2026, frente a su copia 1"_s))
            << qPrintable(De<QLabel>(forma, "LblCopia").text());
        EXPECT_EQ(De<QLabel>(forma, "LblResumen").text(), u"Clientes agregados: 1, base +20.00, percepción +1.00\n"
                                                          "Clientes quitados: 1, base -5.00, percepción -1.00\n"
                                                          "Clientes cambiados: 1, base +100.25, percepción 0.00"_s);
        const auto& casillas = De<QTableView>(forma, "GrdCasillas");
        EXPECT_EQ(Fila(casillas, 0), u"401|Percepciones efectuadas|10|30|+20"_s);
        EXPECT_EQ(Fila(casillas, 18), u"999|Forma de pago|Efectivo|Cheque|cambia"_s);
        const auto& clientes = De<QTableView>(forma, "GrdClientes");
        EXPECT_EQ(Fila(clientes, 0), u"Cambiado|RUC|20512345671|BODEGA RIO SECO|900.25|1,000.50|1.00|1.00|+1|"_s);
        EXPECT_EQ(Fila(clientes, 1), u"Agregado|RUC|20512345672|FERRETERIA LOMAS|0.00|20.00|0.00|1.00||"_s);
        EXPECT_EQ(clientes.model()->rowCount(), 3);
        AlAbrir({}, [](QWidget& vista) { Clic(vista, u"tlbPrevia_4"_s); });
        Clic(forma, "CmdPreliminar");
    });
    MuestraCambios(detras, ProcesoAparte(m_taller.proceso), m_entorno, Pedido());
    EsperaTrabajos();
    const QString hoja = Impreso().value(0);
    for (const QString& parte :
         {u"QUE CAMBIA FRENTE A LO ENVIADO - PERIODO 01/2026"_s, u"401 Percepciones efectuadas 10 30 +20"_s,
          u"Cambiado RUC 20512345671 BODEGA RIO SECO 900.25 1,000.50 1.00 1.00 +1"_s,
          u"Quitado RUC 20512345673 MOLINO ALTO 5.00 0.00 1.00 0.00"_s, u"Agregados: 1 +20.00 +1.00"_s})
        EXPECT_TRUE(hoja.contains(parte)) << qPrintable(parte) << " in " << qPrintable(hoja);
    EXPECT_EQ(m_taller.base.Filas(u"SELECT CodRep, Doc_id_d FROM SPOOL"_s),
              QStringList{u"PER008|"_s + m_taller.clave.ruc.Texto()});
}

TEST_F(ChangesTest, ALongReportTurnsItsPagesUnderTheSameHead) {
    Comparacion larga{.pedido = Pedido(), .casillas = {}, .clientes = {}};
    for (int i = 0; i < 200; ++i) {
        ClienteComparado cliente;
        cliente.clase = ClaseDeCambio::Agregado;
        cliente.numero = QString::number(20512300000 + i);
        cliente.nombre = u"CLIENTE"_s;
        cliente.despues = {Importe::Valor(u"1234567.89"), Importe::Valor(u"2")};
        cliente.comprobantes.agregados = 3;
        larga.clientes.append(cliente);
    }
    const int hojas = InformeCambios::TotalPaginas(larga);
    Libreta libreta;
    EjecutaReporte(m_taller.proceso, DatosCambios{std::make_shared<const Comparacion>(larga), {}}, libreta);
    EXPECT_EQ(libreta.Hojas(), hojas);
    for (int hoja = 0; hoja < hojas; ++hoja) {
        EXPECT_TRUE(libreta.Textos(hoja).value(0).endsWith(QString::number(hoja + 1)));
        EXPECT_TRUE(libreta.Textos(hoja).value(1).endsWith(u"PER008"_s));
    }
}

} // namespace
