#include "import/CorrectedFile.h"
#include "import/CorrectionRun.h"
#include "import/ImportFixture.h"
#include "values/Progress.h"

using testing::ElementsAre;

namespace {

using Clase = FiltroDeLineas::Clase;

/// A file whose refused lines are to be put right.
class Corregido {
  public:
    explicit Corregido(const FormatoImportacion& formato = FormatoPercepciones())
        : m_formato(formato), escenario(u"202610"_s, formato) {}

    /// Imports it, or tries it; what the run refuses comes into the correction.
    ResultadoImportacion Toma(const QByteArray& bytes, bool prueba = false) {
        const auto rechazadas = std::make_shared<LineasRechazadas>();
        escenario.opciones = {.prueba = prueba, .rechazadas = rechazadas.get()};
        const ResultadoImportacion resultado = escenario.Importa(bytes);
        rechazadas->Cierra();
        const bool entero = prueba || resultado.fin == FinImportacion::Rechazada;
        correccion = std::make_shared<Correccion>(rechazadas, m_formato, entero ? resultado.ruta : QString());
        return resultado;
    }
    DesenlaceDeCorreccion Corre(bool prueba, const FiltroDeLineas& filtro = {}) {
        return Corre(prueba, m_sinAvance, filtro);
    }
    DesenlaceDeCorreccion Corre(bool prueba, Avance& avance, const FiltroDeLineas& filtro = {}) {
        DesenlaceDeCorreccion desenlace = CorreCorregidas(escenario.proceso, escenario.clave, *correccion,
                                                          correccion->PorCorrer(filtro), prueba, avance);
        correccion->Anota(desenlace.veredictos, prueba);
        return desenlace;
    }
    /// Line of the file, code, field and, behind a bar, the text as it stands, of each line that is refused.
    [[nodiscard]] QStringList Rechazadas() const {
        QStringList lineas;
        for (const int cual : correccion->Lineas({})) {
            const FallaDeLinea& falla = correccion->Falla(cual);
            lineas.append(u"%1 %2 %3"_s.arg(correccion->Numero(cual)).arg(QString(falla.codigo)).arg(falla.campo));
        }
        return lineas;
    }

  private:
    const FormatoImportacion& m_formato;
    SinAvance m_sinAvance;

  public:
    Escenario escenario;
    std::shared_ptr<Correccion> correccion;
};

QByteArray Archivo(const QStringList& lineas) {
    return lineas.join(u'\n').toUtf8() + '\n';
}

/// Every third line has a tax credit that is none; the second a document of no type.
QByteArray ConFallas(int lineas) {
    QStringList todas;
    for (int i = 1; i <= lineas; ++i) {
        Cambios cambios{{Campo::NumeroPercepcion, QString::number(i)}};
        if (i % 3 == 0)
            cambios.insert(Campo::CreditoFiscal, u"S"_s);
        if (i == 2)
            cambios.insert(Campo::TipoDoc, u"9"_s);
        todas.append(LineaDe(cambios));
    }
    return Archivo(todas);
}

TEST(Correction, KeepsEachRefusedLineOnceInTheFilesOrderAsItStood) {
    Corregido c;
    const Cambios otroMonto{{Campo::MontoCobrado, u"7"_s}};
    QByteArray bytes = Archivo({LineaDe(), LineaDe(), LineaDe(otroMonto), LineaDe({{Campo::TipoDoc, u"9"_s}})});
    bytes +=
        LineaDe({{Campo::Nombres, u"Pe\u00F1a \u20AC"_s}}).toUtf8().replace("\u00F1", "\xF1").replace("\u20AC", "\x80");
    c.Toma(bytes);
    EXPECT_THAT(c.Rechazadas(), ElementsAre(u"2 0228 -1"_s, u"3 0872 -1"_s, u"4 0009 0"_s, u"5 0239 5"_s));
    EXPECT_EQ(c.correccion->Celdas(c.correccion->Texto(3)).at(5), u"Pe\u00F1a \u20AC"_s);
    EXPECT_TRUE(c.correccion->Falla(1).motivo.contains(u"no coincide"_s));
    c.Toma(ConFallas(9), true);
    EXPECT_THAT(c.Rechazadas(), ElementsAre(u"2 0009 0"_s, u"3 0875 9"_s, u"6 0875 9"_s, u"9 0875 9"_s));
}

TEST(Correction, AValueGoesToTheLinesWithTheSameFaultInTheSameField) {
    Corregido c;
    c.Toma(ConFallas(12), true);
    const auto credito = static_cast<int>(Campo::CreditoFiscal);
    c.correccion->PonCelda({1, credito}, u"0"_s);
    c.correccion->PonCelda({3, credito}, u"9"_s); // put right by hand, as little as it helps
    c.correccion->PonCelda({2, 4}, u"Soto"_s);    // which leaves the field at fault as it was
    EXPECT_THAT(c.correccion->ConLaMismaFalla(1), ElementsAre(2, 4));
    EXPECT_THAT(c.correccion->ConLaMismaFalla(0), ElementsAre());
    ASSERT_THAT(c.correccion->Grupos(), testing::SizeIs(2));
    EXPECT_EQ(c.correccion->Grupos().front().lineas, 4);
    EXPECT_EQ(c.correccion->PorPerder(), 3);
    c.correccion->PonCelda({3, credito}, u"S"_s);
    EXPECT_EQ(c.correccion->PorPerder(), 2) << "as it stood again";
}

TEST(Correction, ATrialKeepsNothingAndAnImportIsOneLikeAnyOther) {
    Corregido c;
    c.Toma(ConFallas(9));
    const QList<int> antes = c.escenario.Cuenta();
    c.correccion->PonCelda({0, 0}, u"1"_s);
    c.correccion->PonCelda({1, 9}, u"1"_s);
    EXPECT_EQ(c.Corre(true).resultado.transferidos, 2);
    EXPECT_EQ(c.escenario.Cuenta(), antes);
    EXPECT_THAT(c.correccion->Lineas({Clase::QuePasan}), ElementsAre(0, 1));
    EXPECT_THAT(c.Rechazadas(), ElementsAre(u"6 0875 9"_s, u"9 0875 9"_s));

    c.correccion->PonCelda({2, 9}, u"1"_s);
    c.correccion->PonCelda({2, 7}, u"1"_s); // a voucher that is there
    const ResultadoImportacion importado = c.Corre(false).resultado;
    EXPECT_THAT(c.Rechazadas(), ElementsAre(u"6 0228 -1"_s, u"9 0875 9"_s));
    EXPECT_EQ(c.correccion->Cuantas(EstadoDeLinea::Importada), 2);
    EXPECT_EQ(c.escenario.Cuenta().at(1), antes.at(1) + 2);
    EXPECT_EQ(c.escenario.base.Filas(u"SELECT mto_base_p * 10 FROM TMPF518PCAB"_s), QStringList{u"7035"_s});
    EXPECT_EQ(BytesDe(importado.rutaLog).count('\n'), 2) << "the lines of this run alone";
    EXPECT_EQ(c.correccion->PorPerder(), 1);
}

/// Neither lines that would bar a file, nor the others on their account.
TEST(Correction, LinesThatBarTheirFileAreShownAndMended) {
    Corregido c(FormatoVentas());
    const QString larga = VentaDe({{Campo::Nombres, QString(70'000, u'X')}});
    const QString corta = VentaDe().remove(u"|01|"_s);
    c.Toma(Archivo({VentaDe(), u"1|2|"_s, corta, larga, VentaDe() + u"x|"_s, VentaDe() + u"y"_s}));
    EXPECT_THAT(c.Rechazadas(), ElementsAre(u"2  -1"_s, u"3  -1"_s, u"4  -1"_s, u"5  -1"_s, u"6  -1"_s));
    EXPECT_THAT(c.correccion->Grupos(), testing::SizeIs(3));
    EXPECT_EQ(c.correccion->Celdas(c.correccion->Texto(3)).last(), u"x|"_s);
    EXPECT_EQ(c.correccion->Celdas(c.correccion->Texto(4)).last(), u"y"_s);
    c.correccion->PonCelda({1, 13}, u"01"_s);
    c.correccion->PonCelda({2, 5}, u"Ana"_s);
    c.correccion->PonCelda({2, 7}, u"9"_s);
    c.correccion->PonCelda({3, 14}, {});
    EXPECT_EQ(c.correccion->Texto(3), VentaDe());
    const DesenlaceDeCorreccion desenlace = c.Corre(false);
    EXPECT_EQ(desenlace.resultado.fin, FinImportacion::Completa);
    EXPECT_THAT(c.Rechazadas(), ElementsAre(u"2  -1"_s, u"5 0871 -1"_s, u"6  -1"_s));
    EXPECT_EQ(c.escenario.Cuenta(), (QList<int>{1, 2, 0}));
    EXPECT_FALSE(c.Corre(true, {Clase::DeUnaFalla, c.correccion->Originales().Falla(0)}).corrio);
}

/// Says to stop after so many words.
class Impaciente final : public Avance {
  public:
    explicit Impaciente(int palabras) : m_palabras(palabras) {}
    void Va(qint64 /*hecho*/, qint64 /*total*/) override {
        if (m_palabras-- == 0)
            throw Detenido();
    }

  private:
    int m_palabras;
};

TEST(Correction, WhatAStoppedImportHasNotComeToStaysInTheList) {
    Corregido c;
    QStringList lineas;
    for (int i = 1; i <= 6; ++i)
        lineas.append(LineaDe({{Campo::NumeroPercepcion, QString::number(i)}, {Campo::CreditoFiscal, u"S"_s}}));
    c.Toma(Archivo(lineas));
    for (int cual = 0; cual < 6; ++cual)
        c.correccion->PonCelda({cual, 9}, cual == 1 ? u"2"_s : u"1"_s);
    Impaciente persona(4);
    EXPECT_EQ(c.Corre(false, persona).resultado.fin, FinImportacion::Cancelada);
    EXPECT_EQ(c.escenario.Cuenta().at(1), 3);
    EXPECT_THAT(c.Rechazadas(), ElementsAre(u"2 0875 9"_s, u"5 0875 9"_s, u"6 0875 9"_s));
    EXPECT_EQ(c.correccion->PorPerder(), 3);
}

TEST(Correction, TheLinesStillToBeImportedMakeAFile) {
    Corregido c;
    c.Toma(ConFallas(9));
    c.correccion->PonCelda({1, 9}, u"1"_s);
    c.correccion->PonCelda({2, 3}, u"PE\u00D1A \u20AC"_s);
    const QString ruta = c.escenario.base.Carpeta() + u"/corregido.txt"_s;
    ASSERT_EQ(c.Corre(false, {Clase::DeUnaFalla, c.correccion->Originales().Falla(1)}).resultado.transferidos, 1);
    GuardaCorregido(*c.correccion, ruta);
    const QByteArray guardado = BytesDe(ruta);
    EXPECT_EQ(guardado.count('\n'), 3) << "without the imported one";
    EXPECT_EQ(guardado.count("|\r\n"), 3);
    EXPECT_TRUE(guardado.contains("|PE\xD1"
                                  "A \x80|"));
    c.correccion->PonCelda({2, 3}, u"\u0141"_s);
    try {
        GuardaCorregido(*c.correccion, ruta);
        ADD_FAILURE() << "lost a character";
    } catch (const Error& error) {
        EXPECT_TRUE(error.Texto().startsWith(u"La línea 6 "_s));
    }
    EXPECT_EQ(BytesDe(ruta), guardado) << "half a file in its place";
}

TEST(Correction, OfAFileNotImportedTheLinesStandAmongTheOthersAlsoInItsPlace) {
    Corregido c;
    c.Toma(ConFallas(6), true);
    c.correccion->PonCelda({1, 9}, u"1"_s);
    const QString ruta = c.escenario.RutaArchivo();
    GuardaCorregido(*c.correccion, ruta);
    c.correccion->PonCelda({2, 9}, u"0"_s);
    GuardaCorregido(*c.correccion, ruta);
    QByteArray esperado = ConFallas(6).replace("\n", "\r\n");
    for (const char nuevo : {'1', '0'})
        esperado.replace(esperado.indexOf("|S|"), 3, QByteArray("|") + nuevo + '|');
    EXPECT_EQ(BytesDe(ruta), esperado);

    c.Toma(ConFallas(6), true);
    c.escenario.Escribe(ConFallas(5));
    EXPECT_THROW(GuardaCorregido(*c.correccion, c.escenario.base.Carpeta() + u"/otro.txt"_s), Error);
}

} // namespace
