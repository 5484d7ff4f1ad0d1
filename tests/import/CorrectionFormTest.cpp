#include "import/CorrectedFile.h"
#include "import/FrmCorreccion.h"
#include "import/ImportFixture.h"
#include "support/FileDialogScript.h"
#include "support/FormDriver.h"

#include <QLabel>
#include <QTableView>

using testing::ElementsAre;

namespace {

const auto kCredito = static_cast<int>(Campo::CreditoFiscal);

class CorrectionForm : public testing::Test {
  protected:
    /// Over a file of lines without a voucher number of their own each, which has been imported.
    void Abre(const QStringList& lineas, bool prueba = false) {
        m_rechazadas = std::make_shared<LineasRechazadas>();
        m_escenario.opciones = {.prueba = prueba, .rechazadas = m_rechazadas.get()};
        const ResultadoImportacion resultado = m_escenario.Importa(lineas);
        m_rechazadas->Cierra();
        m_correccion =
            std::make_shared<Correccion>(m_rechazadas, FormatoPercepciones(), prueba ? resultado.ruta : QString());
        Abre();
    }
    void Abre() {
        m_forma = std::make_unique<FrmCorreccion>(
            EntornoCorreccion{m_escenario.proceso, m_avisos, m_archivos, m_escenario.clave, m_escenario.base.Carpeta(),
                              [this](Forma& /*sobre*/, const ResultadoImportacion& resultado) {
                                  m_importados.append(resultado.transferidos);
                              }},
            m_correccion);
        Muestra(*m_forma);
    }
    template <typename Control = QWidget>
    [[nodiscard]] Control& De(const char* nombre) const {
        return prueba::De<Control>(*m_forma, nombre);
    }
    [[nodiscard]] QTableView& Grilla() const { return De<QTableView>("GrdLineas"); }
    /// Keys where the focus is, which the first letter takes into the cell.
    static void Teclea(const QString& texto) {
        for (const QChar letra : texto)
            QTest::keyClicks(QApplication::focusWidget(), QString(letra));
    }
    static void Teclea(Qt::Key tecla, Qt::KeyboardModifiers con = {}) {
        QTest::keyClick(QApplication::focusWidget(), tecla, con);
        EsperaTrabajos();
    }
    [[nodiscard]] QString Resultado() const { return De<QLabel>("LblResultado").text(); }
    [[nodiscard]] QString Celda(int fila, int campo) const {
        const QAbstractItemModel& modelo = *Grilla().model();
        return modelo.index(fila, ModeloDeCorreccion::PrimerCampo + campo).data().toString();
    }
    [[nodiscard]] int Filas() const { return Grilla().model()->rowCount(); }

    Escenario m_escenario;
    AvisosDePrueba m_avisos;
    DialogosDeArchivoDePrueba m_archivos;
    QList<qint64> m_importados;
    std::shared_ptr<LineasRechazadas> m_rechazadas;
    std::shared_ptr<Correccion> m_correccion;
    std::unique_ptr<FrmCorreccion> m_forma;
};

QString Mala(int numero, Campo campo, const QString& valor) {
    return LineaDe({{Campo::NumeroPercepcion, QString::number(numero)}, {campo, valor}});
}

TEST_F(CorrectionForm, FromTheKeyboardAloneFromTheFirstFaultToTheImport) {
    Abre({Mala(1, Campo::CreditoFiscal, u"S"_s), Mala(2, Campo::TipoDoc, u"9"_s), Mala(3, Campo::CreditoFiscal, u"N"_s),
          Mala(4, Campo::CreditoFiscal, u"S"_s)});
    const QModelIndex falla = Grilla().currentIndex();
    EXPECT_EQ(falla.column(), ModeloDeCorreccion::PrimerCampo + kCredito);
    EXPECT_TRUE(falla.data(Qt::AccessibleDescriptionRole).toString().startsWith(u"0875: "_s));
    EXPECT_FALSE(falla.data(Qt::DecorationRole).isNull());
    EXPECT_TRUE(De<QLabel>("LblFalla").text().startsWith(u"Línea 1 · 10 Da derecho a crédito fiscal · 0875: "_s));

    EXPECT_FALSE(De("CmdAplicar").isEnabled());
    Teclea(u"1|"_s); // a separator would be another field
    Teclea(Qt::Key_Return);
    EXPECT_EQ(Celda(0, kCredito), u"1"_s);
    m_avisos.EsperaPregunta(u"¿Poner «1» en el campo 10 Da derecho a crédito fiscal en las otras 2 líneas con la misma "
                            "falla?\nLas que ya tienen ese campo corregido quedan como están."_s,
                            Respuesta::Si);
    Teclea(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(Celda(3, kCredito), u"1"_s);
    Teclea(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(Resultado(), u"Pasan: 3. Rechazadas: 1. No se ha guardado nada."_s);
    EXPECT_EQ(Filas(), 1);
    EXPECT_EQ(De<QComboBox>("CmbFiltro").count(), 3);

    Grilla().setFocus();
    Teclea(u"6"_s);
    Teclea(Qt::Key_Escape); // keeps what was typed
    EXPECT_EQ(Celda(0, 0), u"6"_s);
    Teclea(Qt::Key_Return);
    Teclea(u"1"_s);
    Teclea(Qt::Key_I, Qt::AltModifier); // out of the cell
    EXPECT_EQ(Resultado(), u"Importadas: 4. Rechazadas: 0."_s);
    EXPECT_THAT(m_importados, ElementsAre(4));
    EXPECT_EQ(m_escenario.Cuenta().at(1), 4);
    EXPECT_FALSE(De("CmdImportar").isEnabled());
    Clic(*m_forma, "CmdSalir");
    EXPECT_FALSE(m_forma->isVisible());
}

TEST_F(CorrectionForm, NothingTypedIsLostWithoutAQuestion) {
    const QString original = Mala(1, Campo::CreditoFiscal, u"S"_s);
    Abre({original, Mala(2, Campo::CreditoFiscal, u"S"_s)});
    const QString pregunta =
        u"Hay una línea corregida que no se ha importado ni guardado.\n¿Salir y perder las correcciones?"_s;
    Teclea(u"0"_s);
    m_avisos.EsperaPregunta(pregunta, Respuesta::No);
    m_forma->close();
    EXPECT_TRUE(m_forma->isVisible());
    EXPECT_EQ(Celda(0, kCredito), u"0"_s);
    Teclea(Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(De<QLineEdit>("TxtLinea").text(), original);

    De("TxtLinea").setFocus();
    Teclea(Qt::Key_End);
    Teclea(u"x"_s);
    m_avisos.EsperaPregunta(pregunta, Respuesta::Si);
    Clic(*m_forma, "CmdSalir");
    EXPECT_FALSE(m_forma->isVisible());
    EXPECT_EQ(m_correccion->PorPerder(), 0);
    Abre();
    EXPECT_EQ(Celda(0, kCredito), u"S"_s);
}

TEST_F(CorrectionForm, ShowsTheLinesOfAFaultAndRunsTheseAlone) {
    Abre({Mala(1, Campo::CreditoFiscal, u"S"_s), Mala(2, Campo::TipoDoc, u"9"_s),
          Mala(3, Campo::CreditoFiscal, u"N"_s)});
    De("CmbFiltro").setFocus();
    Teclea(Qt::Key_Down);
    Teclea(Qt::Key_Down);
    EXPECT_EQ(Filas(), 1);
    m_correccion->PonCelda({0, kCredito}, u"1"_s);
    m_correccion->PonCelda({1, 0}, u"1"_s);
    Clic(*m_forma, "CmdImportar");
    EXPECT_EQ(Resultado(), u"Importadas: 1. Rechazadas: 0."_s);
    EXPECT_EQ(Filas(), 2) << "all again, since that fault is gone";
    Clic(*m_forma, "CmdSiguiente");
    EXPECT_EQ(Grilla().currentIndex().row(), 1);
    m_avisos.EsperaPregunta(
        u"Hay una línea corregida que no se ha importado ni guardado.\n¿Salir y perder las correcciones?"_s,
        Respuesta::Si);
    Clic(*m_forma, "CmdSalir");
}

TEST_F(CorrectionForm, SavesUnderTheNameThatTheImportLooksForAndAsksBeforeItReplaces) {
    Abre({LineaDe(), Mala(2, Campo::CreditoFiscal, u"S"_s)}, true);
    Teclea(u"1"_s);
    m_archivos.respuesta = m_escenario.base.Carpeta();
    const QString ruta = m_escenario.RutaArchivo();
    const QByteArray antes = BytesDe(ruta);
    const QString pregunta =
        u"Ya existe el archivo %1\nEl nuevo tendrá todas sus líneas, con las corregidas en su lugar.\n¿Desea reemplazarlo?"_s
            .arg(QDir::toNativeSeparators(ruta));
    m_avisos.EsperaPregunta(pregunta, Respuesta::No);
    Clic(*m_forma, "CmdGuardar");
    EXPECT_EQ(BytesDe(ruta), antes);
    m_avisos.EsperaPregunta(pregunta, Respuesta::Si);
    Clic(*m_forma, "CmdGuardar");
    m_escenario.opciones = {};
    EXPECT_EQ(m_escenario.Corre().transferidos, 2) << "whole";
    Clic(*m_forma, "CmdSalir");
    EXPECT_FALSE(m_forma->isVisible()) << "nothing would be lost";
}

} // namespace
