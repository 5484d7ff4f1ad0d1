#include "launcher/PagCopias.h"

#include "launcher/Session.h"
#include "platform/Notices.h"
#include "ui_PagCopias.h"
#include "widgets/HourGlass.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString Momento(const Respaldo& copia) {
    return copia.fecha.toString(u"dd/MM/yyyy HH:mm:ss"_s);
}

QString Tamano(const Respaldo& copia) {
    return QLocale(QLocale::Spanish, QLocale::Peru)
        .formattedDataSize(copia.bytes, 1, QLocale::DataSizeTraditionalFormat);
}

} // namespace

PagCopias::PagCopias(const EntornoPagina& entorno, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagCopias>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->GrdCopias);
    m_ui->GrdCopias->PonColumnas({u"Fecha"_s, u"Tamaño"_s, u"Archivo"_s});
    connect(m_ui->GrdCopias, &TablaFilas::Cambia, this,
            [this] { m_ui->CmdRestaurar->setEnabled(m_ui->GrdCopias->Fila() >= 0); });
    connect(m_ui->CmdCopiar, &QPushButton::clicked, this, Accion([this] { Haz(); }));
    connect(m_ui->CmdRestaurar, &QPushButton::clicked, this, Accion([this] { Restaura(); }));
}

PagCopias::~PagCopias() = default;

void PagCopias::Carga() {
    const bool instalada = LaSesion().HayInstalacion();
    m_lista = instalada ? LaSesion().Copias().Lista() : QList<Respaldo>();
    QStringList rutas;
    for (const Respaldo& copia : m_lista)
        rutas.append(copia.ruta);
    m_ui->GrdCopias->Llena({rutas, [this](qsizetype fila) {
                                const Respaldo& copia = m_lista.at(fila);
                                return QStringList{Momento(copia), Tamano(copia), QFileInfo(copia.ruta).fileName()};
                            }});
    m_ui->LblCopias->setText(
        u"Copias de respaldo: %1. Se conservan las últimas %2."_s.arg(m_lista.size()).arg(Respaldos::kConservados));
    m_ui->CmdCopiar->setEnabled(instalada);
}

void PagCopias::Haz() {
    RelojDeArena reloj;
    const QString ruta = LaSesion().Copias().Haz();
    reloj.Suelta();
    LosAvisos().Muestra({Icono::Informacion,
                         u"La copia de respaldo quedó guardada en '%1'."_s.arg(QDir::toNativeSeparators(ruta)),
                         {}});
    Carga();
    m_ui->GrdCopias->Elige(ruta);
}

void PagCopias::Restaura() {
    const Respaldo copia = m_lista.at(m_ui->GrdCopias->Fila());
    const QString texto = u"¿Confirma que va a poner la base tal como estaba el %1?\n\nLo que se hizo después dejará de"
                          " estar en la base, salvo los números ya dados y los informes registrados. Antes se guarda"
                          " una copia de lo que hay ahora."_s.arg(Momento(copia));
    if (LosAvisos().Pregunta({Icono::Pregunta, texto, {}}, Respuesta::No) == Respuesta::No)
        return;
    RelojDeArena reloj;
    const Veredicto veredicto = LaSesion().Copias().Restaura(copia.ruta, LaSesion().SuFirma());
    reloj.Suelta();
    if (!veredicto) {
        LosAvisos().Muestra(veredicto.Motivo());
        return;
    }
    Q_EMIT Restaurada();
    LosAvisos().Muestra({Icono::Informacion, u"La base quedó como estaba el %1."_s.arg(Momento(copia)), {}});
}

} // namespace xa518
