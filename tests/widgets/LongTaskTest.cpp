#include "widgets/LongTask.h"
#include "widgets/LongTaskBox.h"

#include "support/FormDriver.h"
#include "values/Error.h"

#include <QPointer>
#include <QProgressBar>
#include <QSemaphore>
#include <QThread>

#include <atomic>

namespace {

/// A work over a window that goes on until the test lets it end, telling its progress.
class LongTask : public testing::Test {
  protected:
    LongTask() : m_boton(new QPushButton(u"&Borra"_s, m_ventana.get())) {
        m_ventana->setWindowTitle(u"Declaración"_s);
        QObject::connect(m_boton, &QPushButton::clicked, m_ventana.get(), [this] { ++m_pulsado; });
        Muestra(*m_ventana);
    }
    void Lanza(TareaPedida pedida) {
        CorreTarea(
            *m_ventana, std::move(pedida),
            [this](Avance& avance) {
                EXPECT_NE(QThread::currentThread(), qApp->thread());
                for (qint64 i = 0; !m_sigue.tryAcquire(1, 5); ++i)
                    avance.Va(i, 1000);
                if (m_falla)
                    throw Error(NumeroError::BaseBloqueada, u"La base está ocupada."_s);
                return u"hecho"_s;
            },
            [this](const QString& resultado) {
                EXPECT_EQ(QThread::currentThread(), qApp->thread());
                m_resultados.append(resultado);
            });
    }
    CajaDeTarea& Caja() const {
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_ventana->findChild<CajaDeTarea*>() != nullptr; }));
        return *m_ventana->findChild<CajaDeTarea*>();
    }
    void Termina() {
        m_sigue.release();
        EsperaTrabajos();
    }

    std::unique_ptr<QWidget> m_ventana = std::make_unique<QWidget>();
    QPushButton* m_boton;
    QSemaphore m_sigue;
    bool m_falla = false;
    QStringList m_resultados;
    int m_pulsado = 0;
};

TEST_F(LongTask, TheWindowLivesAndTakesNothingUntilTheEnd) {
    Lanza({.titulo = u"Grabando"_s});
    int latidos = 0;
    QTimer latido;
    QObject::connect(&latido, &QTimer::timeout, [&] { ++latidos; });
    latido.start(10);
    EXPECT_FALSE(m_ventana->close());
    CajaDeTarea& caja = Caja();
    QTest::mouseClick(m_boton, Qt::LeftButton);
    QTest::keyClick(m_ventana.get(), Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(caja.windowTitle(), u"Declaración"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return caja.findChild<QProgressBar*>()->value() > 0; }));
    EXPECT_GT(latidos, 2);
    QTest::keyClick(&caja, Qt::Key_Escape);
    EXPECT_FALSE(caja.close());
    EXPECT_TRUE(m_resultados.isEmpty());
    Termina();
    EXPECT_EQ(m_resultados, QStringList{u"hecho"_s});
    EXPECT_EQ(m_pulsado, 0);
    EXPECT_EQ(m_ventana->findChild<CajaDeTarea*>(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    QTest::mouseClick(m_boton, Qt::LeftButton);
    EXPECT_EQ(m_pulsado, 1);
}

TEST_F(LongTask, AShortWorkIsWaitedForAndAFailureIsTold) {
    m_sigue.release();
    Lanza({.titulo = u"Sumando"_s});
    EsperaTrabajos();
    EXPECT_EQ(m_resultados, QStringList{u"hecho"_s});
    m_falla = true;
    AvisosDelPrograma().Espera(u"La base está ocupada."_s);
    Lanza({.titulo = u"Sumando"_s});
    Termina();
    int fallas = 0;
    Lanza({.titulo = u"Sumando"_s, .alFallar = [&](const std::exception_ptr&) { ++fallas; }});
    Termina();
    EXPECT_EQ(fallas, 1);
    EXPECT_EQ(m_resultados.size(), 1);
}

TEST_F(LongTask, WhatIsDoneAheadArrivesWhereItWasMeant) {
    QLineEdit campo(m_ventana.get());
    campo.show();
    campo.setFocus();
    Lanza({.titulo = u"Sumando"_s});
    QTest::keyClicks(&campo, u"123"_s);
    QTest::mouseClick(m_boton, Qt::LeftButton);
    EXPECT_EQ(campo.text(), QString());
    EXPECT_EQ(m_pulsado, 0);
    Termina();
    QTest::qWait(0);
    EXPECT_EQ(campo.text(), u"123"_s);
    EXPECT_EQ(m_pulsado, 1);
    campo.setFocus();

    Lanza({.titulo = u"Sumando"_s});
    (void)Caja();
    QTest::keyClicks(&campo, u"4"_s);
    Termina();
    QTest::qWait(0);
    EXPECT_EQ(campo.text(), u"123"_s) << "the box has told that nothing is taken";
}

TEST_F(LongTask, AStopEndsItWithoutAWord) {
    Lanza({.titulo = u"Grabando"_s});
    CajaDeTarea& caja = Caja();
    EXPECT_NE(caja.focusWidget(), &De(caja, u"CmdDetener"_s)) << "a key held down would stop it";
    Clic(caja, u"CmdDetener"_s);
    EXPECT_TRUE(m_resultados.isEmpty());
    EXPECT_EQ(m_ventana->findChild<CajaDeTarea*>(), nullptr);

    Lanza({.titulo = u"Grabando"_s, .seDetiene = false});
    EXPECT_FALSE(De(Caja(), u"CmdDetener"_s).isVisible());
    Termina();
    EXPECT_EQ(m_resultados.size(), 1);
}

TEST_F(LongTask, AWindowThatGoesTakesItsWorkAlong) {
    Lanza({.titulo = u"Grabando"_s});
    m_ventana.reset();
    QTest::qWait(50);
    EXPECT_TRUE(m_resultados.isEmpty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(LongTaskBox, TellsTheTimeLeftInWords) {
    EXPECT_EQ(LoQueFalta(0, 100, 5000), QString());
    EXPECT_EQ(LoQueFalta(10, 100, 900), QString()) << "too early to judge";
    EXPECT_EQ(LoQueFalta(50, 100, 10'000), u"Faltan unos 11 segundos"_s);
    EXPECT_EQ(LoQueFalta(99'999, 100'000, 10'000), u"Falta cerca de un segundo"_s);
    EXPECT_EQ(LoQueFalta(10, 100, 7'000), u"Falta cerca de un minuto"_s);
    EXPECT_EQ(LoQueFalta(1, 100, 2'000), u"Faltan unos 3 minutos"_s);
}

} // namespace
