#include "launcher/Moving.h"

#include "data/Base.h"
#include "data/SchemaVersion.h"
#include "data/Transaction.h"
#include "family/ChangeLog.h"
#include "family/Configuration.h"
#include "family/SchemaSteps.h"
#include "family/WorkLock.h"
#include "launcher/FileHolders.h"
#include "launcher/PreparedBase.h"
#include "launcher/TableCopy.h"
#include "launcher/TextChecks.h"
#include "platform/NetworkFolder.h"
#include "values/FileFailure.h"
#include "values/Progress.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>
#include <QThread>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// What an installation fills by itself; whatever else has a row is somebody's work.
const QStringList kCatalogos{u"PARAM"_s, u"ERROR"_s, u"CLAVES"_s};

/// The rows that go by, each of which is read twice: where it was and where it is then; and the print-outs.
class FilasQuePasan {
  public:
    FilasQuePasan(Base& origen, const QStringList& tablas, Avance& avance) : m_avance(&avance) {
        for (const QString& tabla : tablas)
            m_total += 2 * CuentaDeFilas(origen, tabla);
        m_total += ArchivosDeInformes(origen).size();
    }
    void PasaUna() { m_avance->Va(++m_hechas, m_total); }
    void YaEstan() { m_avance->Va(m_total, m_total); }

  private:
    Avance* m_avance;
    qint64 m_hechas = 0;
    qint64 m_total = 0;
};

/// A base that was only just installed gets the catalogue of the one that comes.
void Desocupa(Base& destino, const QStringList& tablas) {
    for (const QString& tabla : tablas) {
        if (kCatalogos.contains(tabla, Qt::CaseInsensitive))
            destino.Ejecuta(u"DELETE FROM "_s + tabla);
        else if (CuentaDeFilas(destino, tabla) > 0)
            throw BaseEnUso(destino.Ruta(), tabla);
    }
}

/// Nobody else is in it, and nobody gets to change it as long as this lives.
class BaseParaMudar {
  public:
    /// Raises `BaseEnUso`. Who only looked at a list, or has just left, takes a moment to be gone on a busy server.
    explicit BaseParaMudar(Base& base) : m_trabajo(base.Ruta()) {
        for (int intento = 1; !EstaSola(base); ++intento) {
            if (intento == kIntentos)
                throw BaseEnUso(base.Ruta());
            QThread::msleep(kEntreIntentos);
        }
    }

  private:
    static constexpr int kIntentos = 50;
    static constexpr int kEntreIntentos = 100; ///< milliseconds

    [[nodiscard]] static bool EstaSola(Base& base) {
        try {
            base.ExigeSola();
            return true;
        } catch (const ErrorBase& error) {
            if (!error.Es(NumeroError::BaseBloqueada))
                throw;
            return false;
        }
    }

    TrabajoUnico m_trabajo;
};

/// Behind what is told of the tables; empty without print-outs.
QString TextoDeInformes(const InformesMudados& informes) {
    QString texto;
    if (informes.llevados > 0)
        texto += u" Con ella fueron los textos de los informes: %1."_s.arg(informes.llevados);
    if (informes.sinTexto > 0)
        texto += u" Informes registrados cuyo archivo ya no estaba: %1."_s.arg(informes.sinTexto);
    return texto;
}

} // namespace

BaseEnUso::BaseEnUso(const QString& base)
    : Error(NumeroError::BaseBloqueada,
            u"Otro programa trabaja en la base '%1'. Ciérrelo antes de mudarla."_s.arg(base)) {}

BaseEnUso::BaseEnUso(const QString& base, const QString& tabla)
    : Error(NumeroError::BaseBloqueada,
            u"La base '%1' ya guarda datos, en la tabla %2. Mude a una base vacía."_s.arg(base, tabla)) {}

QString TextoDeMudanza(const BaseMudada& mudada, const QString& origen, const QString& destino) {
    const QString otros = EsDeServidor(destino)
                              ? u"En los demás puestos ejecute consola --instalar --servidor con esa conexión."_s
                              : u"Los demás puestos siguen en el servidor: no trabajan en este archivo."_s;
    return u"La base quedó en '%1': %2 tablas y %3 filas, comparadas una por una.%4\n\nLa anterior queda como estaba, "
           u"en"
           " '%5'.\n\n%6"_s.arg(destino, QString::number(mudada.tablas), QString::number(mudada.filas),
                                TextoDeInformes(mudada.informes), origen, otros);
}

Mudanza::Mudanza(QString origen, QString destino, QString carpetaInformes, ArchivoPerfil perfil,
                 Formularios formularios)
    : m_origen(std::move(origen))
    , m_destino(std::move(destino))
    , m_carpetaInformes(std::move(carpetaInformes))
    , m_perfil(std::move(perfil))
    , m_formularios(std::move(formularios)) {}

Veredicto Mudanza::Valida() const {
    const bool aServidor = EsDeServidor(m_destino);
    if (aServidor && EsDeServidor(m_origen))
        return Veredicto::Critico(
            u"La base ya está en un servidor: '%1'. Múdela primero a un archivo."_s.arg(m_origen));
    if (!aServidor && !EsDeServidor(m_origen))
        return Veredicto::Critico(u"La base ya está en un archivo: '%1'. Se muda a un servidor, con el texto de su"
                                  " conexión."_s.arg(m_origen));
    if (!aServidor)
        return ValidaArchivo();
    const QStringList programas = ProgramasQueUsan(m_origen);
    if (!programas.isEmpty())
        return Veredicto::Critico(
            u"La base está en uso por otro programa: %1. Ciérrelo antes de mudarla."_s.arg(programas.join(u", "_s)));
    return ValidaConexion(m_destino);
}

Veredicto Mudanza::ValidaArchivo() const {
    const QString carpeta = QFileInfo(m_destino).absolutePath();
    if (QFileInfo::exists(m_destino))
        return Veredicto::Critico(u"El archivo '%1' ya existe: elija otro nombre."_s.arg(m_destino));
    if (!QFileInfo(carpeta).isDir())
        return Veredicto::Critico(u"No existe la carpeta '%1'."_s.arg(carpeta));
    if (EstaEnRed(carpeta))
        return Veredicto::Critico(u"La carpeta '%1' está en otra máquina: un archivo compartido por la red puede perder"
                                  " datos. Elija una carpeta de este equipo."_s.arg(carpeta));
    return ValidaCarpeta(carpeta);
}

BaseMudada Mudanza::Muda(const Firma& firma, Avance& avance) const {
    const std::unique_ptr<Base> origen = Base::Abre(m_origen);
    ExigeVersion(*origen, VersionDelEsquema(m_formularios));
    const BaseParaMudar reservada(*origen);
    const Transaccion quieta = origen->Comienza(); // nobody writes there until the profile names the new place
    BaseMudada mudada =
        EsDeServidor(m_destino) ? MudaAServidor(*origen, firma, avance) : MudaAArchivo(*origen, firma, avance);
    EscribePerfil();
    return mudada;
}

BaseMudada Mudanza::MudaAServidor(Base& origen, const Firma& firma, Avance& avance) const {
    BasePreparada preparada = PreparaBase(m_destino, m_formularios);
    const BaseParaMudar reservada(*preparada.base);
    BaseMudada mudada = Copia(origen, *preparada.base, origen.Tablas(), firma, avance);
    mudada.hecho = std::move(preparada.hecho);
    return mudada;
}

/// The file gets its name when it is whole.
BaseMudada Mudanza::MudaAArchivo(Base& origen, const Firma& firma, Avance& avance) const {
    const QString carpeta = QFileInfo(m_destino).absolutePath();
    const QTemporaryDir lugar(carpeta + u"/.mudanza-XXXXXX"_s);
    if (!lugar.isValid())
        throw FallaDeCarpeta(carpeta);
    const QString archivo = lugar.filePath(u"base"_s);
    BaseMudada mudada;
    {
        const BasePreparada preparada = PreparaBase(archivo, m_formularios);
        mudada = Copia(origen, *preparada.base, preparada.base->Tablas(), firma, avance);
    }
    if (!QFile::rename(archivo, m_destino))
        throw Error(NumeroError::AccesoAlDisco, u"No se puede escribir el archivo '%1'."_s.arg(m_destino));
    return mudada;
}

BaseMudada Mudanza::Copia(Base& origen, Base& destino, const QStringList& tablas, const Firma& firma,
                          Avance& avance) const {
    FilasQuePasan filas(origen, tablas, avance);
    const auto pasaUna = [&filas] { filas.PasaUna(); };
    Transaccion transaccion = destino.Comienza();
    Desocupa(destino, tablas);
    QMap<QString, HuellaDeTabla> huellas;
    for (const QString& tabla : tablas)
        huellas.insert(tabla, CopiaTabla(origen, destino, tabla, pasaUna));
    BaseMudada mudada{.tablas = tablas.size()};
    for (const auto& [tabla, huella] : huellas.asKeyValueRange()) {
        if (HuellaDe(destino, tabla, pasaUna) != huella)
            throw ErrorBase(NumeroError::FallaDelMotor,
                            u"La tabla %1 no quedó igual en '%2': no se ha mudado nada."_s.arg(tabla, m_destino));
        mudada.filas += huella.filas;
    }
    mudada.informes = MudaInformes(origen, destino, m_carpetaInformes, pasaUna);
    filas.YaEstan();
    Bitacora(destino).Anota(
        firma, {.suceso = Suceso::Mudanza, .antes = u"base="_s + m_origen, .despues = u"base="_s + m_destino});
    transaccion.Confirma();
    return mudada;
}

/// By one key that counts at a time: as long as the name is a server's, no folder does.
void Mudanza::EscribePerfil() const {
    const QFileInfo archivo(m_destino);
    const bool aServidor = EsDeServidor(m_destino);
    const QString carpeta =
        aServidor ? QString() : QDir::toNativeSeparators(QDir::cleanPath(archivo.absolutePath()) + u'/');
    const auto ponNombre = [&] {
        m_perfil.Escribe(kSeccionOpciones, u"DBName", aServidor ? m_destino : archivo.fileName());
    };
    const auto ponCarpeta = [&] { m_perfil.Escribe(kSeccionOpciones, u"DBPath", carpeta); };
    try {
        if (aServidor)
            ponNombre();
        ponCarpeta();
        if (!aServidor)
            ponNombre();
    } catch (const Error& error) {
        throw Error(error.Numero(),
                    u"La base ya está mudada a '%1', pero no se pudo escribir '%2': ponga ahí DBPath=%3 y"
                    " DBName=%4. %5"_s.arg(m_destino, m_perfil.Ruta(), carpeta,
                                           aServidor ? m_destino : archivo.fileName(), error.Texto()),
                    error.Detalle());
    }
}

} // namespace xa518
