#include "launcher/PagCopias.h"

#include "launcher/FrmMudanza.h"
#include "launcher/Session.h"
#include "platform/Notices.h"
#include "ui_PagCopias.h"
#include "widgets/Application.h"
#include "widgets/LongTask.h"
#include "widgets/WidgetHelpers.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kArchivoDeVuelta = u"XA000-local.DB"_s;

QString Momento(const Respaldo& copia) {
    return copia.fecha.toString(u"dd/MM/yyyy HH:mm:ss"_s);
}

QString Tamano(const Respaldo& copia) {
    return QLocale(QLocale::Spanish, QLocale::Peru)
        .formattedDataSize(copia.bytes, 1, QLocale::DataSizeTraditionalFormat);
}

/// A file by its full name.
QString LugarCompleto(const QString& destino) {
    return EsDeServidor(destino) ? destino : QFileInfo(destino).absoluteFilePath();
}

} // namespace

PagCopias::PagCopias(const EntornoPagina& entorno, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagCopias>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->GrdCopias);
    m_ui->GrdCopias->PonColumnas({u"Fecha"_s, u"Tamaño"_s, u"Archivo"_s});
    connect(m_ui->GrdCopias, &TablaFilas::Cambia, this,
            [this] { Habilita(*m_ui->CmdRestaurar, m_ui->GrdCopias->Fila() >= 0); });
    // Without the reading anew that follows what others do: these go on by then, and some need the base alone.
    connect(m_ui->CmdCopiar, &QPushButton::clicked, this, Trabajo([this] { Haz(); }));
    connect(m_ui->CmdRestaurar, &QPushButton::clicked, this, Trabajo([this] { Restaura(); }));
    connect(m_ui->CmdMudar, &QPushButton::clicked, this, Trabajo([this] { PideMudanza(); }));
}

PagCopias::~PagCopias() = default;

/// A handler that tells what keeps a work from beginning as it would tell what ends it.
std::function<void()> PagCopias::Trabajo(std::function<void()> empieza) {
    return Protegido([this, empieza = std::move(empieza)] {
        try {
            empieza();
        } catch (const Error&) {
            AlFallar()(std::current_exception());
        }
    });
}

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
    Habilita(*m_ui->CmdMudar, instalada);
    m_ui->CmdMudar->setText(EsDeServidor(LaSesion().RutaBase()) ? u"Volver &a un archivo..."_s
                                                                : u"Mud&ar a un servidor..."_s);
}

void PagCopias::Haz() {
    const auto alTerminar = [this](const QString& ruta) {
        LosAvisos().Muestra({Icono::Informacion,
                             u"La copia de respaldo quedó guardada en '%1'."_s.arg(QDir::toNativeSeparators(ruta)),
                             {}});
        Carga();
        m_ui->GrdCopias->Elige(ruta);
        Q_EMIT Cambio();
    };
    CorreTarea(
        *this, {.titulo = u"Haciendo la copia de respaldo"_s, .alFallar = AlFallar()},
        [copias = LaSesion().Copias()](Avance& avance) { return copias.Haz(avance); }, alTerminar);
}

void PagCopias::Restaura() {
    const Respaldo copia = m_lista.at(m_ui->GrdCopias->Fila());
    const QString texto = u"¿Confirma que va a poner la base tal como estaba el %1?\n\nLo que se hizo después dejará de"
                          " estar en la base, salvo los números ya dados y los informes registrados. Antes se guarda"
                          " una copia de lo que hay ahora."_s.arg(Momento(copia));
    if (LosAvisos().Pregunta({Icono::Pregunta, texto, {}}, Respuesta::No) == Respuesta::No)
        return;
    const auto alTerminar = [this, copia](const Veredicto& veredicto) {
        if (veredicto)
            Q_EMIT Restaurada();
        LosAvisos().Muestra(
            veredicto ? Mensaje{Icono::Informacion, u"La base quedó como estaba el %1."_s.arg(Momento(copia)), {}}
                      : veredicto.Motivo());
        Q_EMIT Cambio();
    };
    CorreTarea(
        *this, {.titulo = u"Restaurando la copia de respaldo"_s, .alFallar = AlFallar()},
        [copias = LaSesion().Copias(), ruta = copia.ruta, firma = LaSesion().SuFirma()](Avance& avance) {
            return copias.Restaura(ruta, firma, avance);
        },
        alTerminar);
}

void PagCopias::PideMudanza() {
    const bool vuelve = EsDeServidor(LaSesion().RutaBase());
    const QString propuesto = vuelve ? QDir::toNativeSeparators(QDir(LaSesion().Carpeta()).filePath(kArchivoDeVuelta))
                                     : u"host=servidor dbname=base sslmode=verify-full"_s;
    const auto revisa = [this](const QString& destino) { return LaSesion().MudanzaA(LugarCompleto(destino)).Valida(); };
    FrmMudanza forma(LosAvisos(), vuelve ? FrmMudanza::Hacia::Archivo : FrmMudanza::Hacia::Servidor, propuesto, revisa,
                     window());
    EjecutaSobre(*window(), forma);
    if (!forma.Destino().isEmpty())
        Muda(LugarCompleto(forma.Destino()));
}

void PagCopias::Muda(const QString& destino) {
    const QString origen = LaSesion().RutaBase();
    const auto alFallar = [this, origen, destino](const std::exception_ptr& falla) {
        try {
            std::rethrow_exception(falla);
        } catch (const Error& error) {
            LosAvisos().Muestra({Icono::Critico, TextoDeFalla(error, EsDeServidor(destino) ? destino : origen), {}});
        }
    };
    CorreTarea(
        *this, {.titulo = u"Mudando la base"_s, .seDetiene = true, .alFallar = alFallar},
        [mudanza = LaSesion().MudanzaA(destino), firma = LaSesion().SuFirma()](Avance& avance) {
            return mudanza.Muda(firma, avance);
        },
        [this, origen, destino](const BaseMudada& mudada) {
            Q_EMIT Restaurada();
            LosAvisos().Muestra({Icono::Informacion, TextoDeMudanza(mudada, origen, destino), {}});
        });
}

} // namespace xa518
