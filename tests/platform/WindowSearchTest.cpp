#include "platform/WindowSearch.h"

#include "Printers.h"

#include <gtest/gtest.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

struct Ventana {
    QString titulo;
    QString clase;
    bool visible = true;
};

class VentanasDePrueba final : public VentanasDelSistema {
  public:
    explicit VentanasDePrueba(QList<Ventana> ventanas) : m_ventanas(std::move(ventanas)) {}
    QList<Manejador> Superiores() override {
        QList<Manejador> todas;
        for (qsizetype i = 0; i < m_ventanas.size(); ++i)
            todas.append(static_cast<Manejador>(i + 1));
        return todas;
    }
    bool EsVisible(Manejador ventana) override { return De(ventana).visible; }
    QString Titulo(Manejador ventana) override { return De(ventana).titulo; }
    QString Clase(Manejador ventana) override { return De(ventana).clase; }
    void PideCierre(Manejador ventana) override { m_cerradas.append(ventana); }

    QList<Manejador> m_cerradas;

  private:
    const Ventana& De(Manejador ventana) const { return m_ventanas.at(static_cast<qsizetype>(ventana) - 1); }
    QList<Ventana> m_ventanas;
};

TEST(WindowSearchTest, WantsTheWholeTitleInItsCaseOnAVisibleWindow) {
    const QString consola = u"Consola Orvel de Presentaciones"_s;
    const QList<std::pair<QList<Ventana>, bool>> casos = {
        {{}, false},
        {{{u""_s, {}}, {u"Otra"_s, {}}, {consola, {}}}, true},
        {{{consola, {}, false}}, false},
        {{{consola, {}, false}, {consola, {}}}, true},
        {{{consola + u" - 2"_s, {}}}, false},
        {{{u"- "_s + consola, {}}}, false},
        {{{u"consola Orvel de Presentaciones"_s, {}}}, false},
    };
    for (const auto& [ventanas, corre] : casos) {
        VentanasDePrueba sistema(ventanas);
        EXPECT_EQ(cWindows(sistema).CorreApp(consola), corre) << (&ventanas - &casos.first().first);
    }
}

TEST(WindowSearchTest, ClosesByClassAndTitleButNeverTheShell) {
    VentanasDePrueba sistema({{u"Progman"_s, u"Progman"_s}, {u"Nota"_s, u"otra"_s}, {u"Nota"_s, u"editor"_s, false}});
    cWindows ventanas(sistema);
    ventanas.CloseApp(u"Progman"_s, u"Progman"_s);
    ventanas.CloseApp(u"Nota"_s, u"ninguna"_s);
    EXPECT_TRUE(sistema.m_cerradas.isEmpty());
    ventanas.CloseApp(u"nota"_s, u"Editor"_s);
    EXPECT_EQ(sistema.m_cerradas, QList<Manejador>{3});
}

TEST(WindowSearchTest, CutsTheClassAt256) {
    VentanasDePrueba sistema({{u"Larga"_s, QString(300, u'c')}});
    cWindows ventanas(sistema);
    EXPECT_EQ(ventanas.ClassName(u"Larga"_s), QString(256, u'c'));
    EXPECT_EQ(ventanas.ClassName(u"Ninguna"_s), QString());
}

} // namespace
} // namespace xa518
