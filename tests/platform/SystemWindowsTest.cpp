#include "platform/WindowSearch.h"
#include "support/Test.h"

#include <xcb/xcb.h>

#include <QProcess>

namespace {

const QString kConsola = u"Consola Orvel de Presentaciones"_s;

/// A bare X server of its own, without a window manager unless the test plays one.
class SystemWindowsTest : public testing::Test {
  protected:
    void SetUp() override {
        m_servidor.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"640x480x24"_s});
        ASSERT_TRUE(m_servidor.waitForReadyRead(20000)) << m_servidor.errorString().toStdString();
        qputenv("DISPLAY", ":" + m_servidor.readLine().trimmed());
        m_conexion = xcb_connect(nullptr, nullptr);
        ASSERT_EQ(xcb_connection_has_error(m_conexion), 0);
        m_raiz = xcb_setup_roots_iterator(xcb_get_setup(m_conexion)).data->root;
    }
    void TearDown() override {
        xcb_disconnect(m_conexion);
        m_servidor.kill();
        m_servidor.waitForFinished();
    }

    xcb_atom_t Atomo(const QByteArray& nombre) {
        const auto pedido = xcb_intern_atom(m_conexion, 0, static_cast<uint16_t>(nombre.size()), nombre.constData());
        auto* respuesta = xcb_intern_atom_reply(m_conexion, pedido, nullptr);
        const xcb_atom_t atomo = respuesta->atom;
        free(respuesta);
        return atomo;
    }
    void PonTexto(xcb_window_t ventana, xcb_atom_t cual, xcb_atom_t tipo, const QByteArray& texto) {
        xcb_change_property(m_conexion, XCB_PROP_MODE_REPLACE, ventana, cual, tipo, 8,
                            static_cast<uint32_t>(texto.size()), texto.constData());
    }
    void PonPalabras(xcb_window_t ventana, const QByteArray& cual, const QList<uint32_t>& palabras) {
        xcb_change_property(m_conexion, XCB_PROP_MODE_REPLACE, ventana, Atomo(cual), XCB_ATOM_WINDOW, 32,
                            static_cast<uint32_t>(palabras.size()), palabras.constData());
    }
    xcb_window_t Crea(const QString& titulo, bool visible, xcb_window_t padre = 0) {
        const xcb_window_t ventana = xcb_generate_id(m_conexion);
        xcb_create_window(m_conexion, XCB_COPY_FROM_PARENT, ventana, padre ? padre : m_raiz, 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        PonTexto(ventana, Atomo("_NET_WM_NAME"), Atomo("UTF8_STRING"), titulo.toUtf8());
        if (visible)
            xcb_map_window(m_conexion, ventana);
        Espera();
        return ventana;
    }
    void Quita(xcb_window_t ventana) {
        xcb_destroy_window(m_conexion, ventana);
        Espera();
    }
    /// Until the server has done all that was asked.
    void Espera() { free(xcb_get_input_focus_reply(m_conexion, xcb_get_input_focus(m_conexion), nullptr)); }

    [[nodiscard]] static bool Corre() {
        const auto sistema = VentanasReales();
        return cWindows(*sistema).CorreApp(kConsola);
    }

    QProcess m_servidor;
    xcb_connection_t* m_conexion = nullptr;
    xcb_window_t m_raiz = 0;
};

TEST_F(SystemWindowsTest, FindsTheLauncherByItsVisibleWindowAlone) {
    EXPECT_FALSE(Corre());
    Crea(u""_s, true);
    Crea(kConsola + u" 2"_s, true);
    Crea(u"CONSOLA ORVEL DE PRESENTACIONES"_s, true);
    const auto oculta = Crea(kConsola, false);
    EXPECT_FALSE(Corre()) << "hidden, beginning alike or in another case";
    xcb_map_window(m_conexion, oculta);
    Espera();
    EXPECT_TRUE(Corre());
    Quita(oculta);
    EXPECT_FALSE(Corre()) << "gone";

    const auto antigua = Crea(u""_s, true);
    PonTexto(antigua, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, kConsola.toLatin1());
    EXPECT_TRUE((Espera(), Corre())) << "a window with the older title alone";
}

/// A window manager puts each window into a frame of its own, tells them in a list, and unmaps a minimised one.
TEST_F(SystemWindowsTest, BelievesALivingWindowManager) {
    const auto gestor = Crea(u"gestor"_s, false);
    PonPalabras(m_raiz, "_NET_SUPPORTING_WM_CHECK", {gestor});
    PonPalabras(gestor, "_NET_SUPPORTING_WM_CHECK", {gestor});
    const auto marco = Crea(u"marco"_s, true);
    const auto consola = Crea(kConsola, true, marco);
    PonPalabras(m_raiz, "_NET_CLIENT_LIST", {consola});
    EXPECT_TRUE((Espera(), Corre()));

    PonPalabras(consola, "WM_STATE", {3, 0});
    xcb_unmap_window(m_conexion, consola);
    EXPECT_TRUE((Espera(), Corre())) << "minimised";
    PonPalabras(consola, "WM_STATE", {0, 0});
    EXPECT_FALSE((Espera(), Corre())) << "hidden by its program";

    Crea(kConsola, true);
    EXPECT_FALSE(Corre()) << "the list decides while the manager lives";
    Quita(gestor);
    EXPECT_TRUE(Corre()) << "the list of a dead manager doesn't";
}

TEST_F(SystemWindowsTest, TellsTheClassAndAsksToClose) {
    const auto ventana = Crea(u"Período"_s, false);
    PonTexto(ventana, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, QByteArray("consola\0Orvel\0", 14));
    Espera();
    const auto sistema = VentanasReales();
    cWindows ventanas(*sistema);
    EXPECT_EQ(ventanas.ClassName(u"Período"_s), u"Orvel"_s);
    Crea(u"Progman"_s, false);
    ventanas.CloseApp(u"Progman"_s, {}); // the shell is never closed
    ventanas.CloseApp(u"Período"_s, u"otra"_s);
    ventanas.CloseApp(u"PERÍODO"_s, u"orvel"_s);
    auto* aviso = xcb_wait_for_event(m_conexion);
    ASSERT_NE(aviso, nullptr);
    EXPECT_EQ(aviso->response_type & 0x7f, XCB_CLIENT_MESSAGE);
    const auto* pedido = reinterpret_cast<xcb_client_message_event_t*>(aviso);
    EXPECT_EQ(pedido->window, ventana);
    EXPECT_EQ(pedido->data.data32[0], Atomo("WM_DELETE_WINDOW"));
    free(aviso);
}

TEST(SystemWindowsWithoutServerTest, FindNothing) {
    qputenv("DISPLAY", ":not-there");
    EXPECT_TRUE(VentanasReales()->Superiores().isEmpty());
}

} // namespace
