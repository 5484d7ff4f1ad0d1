#include "launcher/Backups.h"

#include "data/Base.h"
#include "data/FollowedWork.h"
#include "data/SchemaVersion.h"
#include "data/ServerDump.h"
#include "data/ServerFailure.h"
#include "data/Transaction.h"
#include "family/ChangeLog.h"
#include "family/SchemaSteps.h"
#include "family/WorkLock.h"
#include "launcher/FileHolders.h"
#include "launcher/KeptNumbers.h"
#include "launcher/PrivateFiles.h"
#include "launcher/Schema.h"
#include "launcher/ServerRestore.h"
#include "platform/Clock.h"
#include "platform/TakePlace.h"
#include "values/FileFailure.h"
#include "values/PrivateAccess.h"
#include "values/Progress.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtDebug>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kPrefijo = u"XA000-"_s;
const QString kMarca = u"yyyyMMdd-HHmmss"_s;
const QString kExtension = u".DB"_s;
const QString kExtensionDeServidor = u".dump"_s;
const QString kExtensionDanada = u".DANADA"_s; ///< no copy to restore, but what is left of a broken base
const QString kDiario = u"-journal"_s;
const QString kServidorEnUso =
    u"Otro puesto trabaja en la base del servidor. Cierre los módulos en todos los puestos antes de restaurar."_s;
constexpr qint64 kRafaga = 3600; ///< seconds that a row of quick copies may run ahead of the clock

/// Why the file, a copy of a copy, can't take the base's place; empty when it can. Its tables are brought up to date.
QString MotivoDeRechazo(const QString& ruta, const Formularios& formularios) {
    try {
        const std::unique_ptr<Base> copia = Base::Abre(ruta);
        const QStringList defectos = Respaldos::Defectos(*copia);
        if (!defectos.isEmpty())
            return u"está dañado, con %1."_s.arg(CuentaDefectos(defectos));
        if (VersionDe(*copia) == 0)
            return u"no es una base de estos programas."_s;
        const EstadoEsquema estado = Esquema(CarpetasDelEsquema(formularios)).Aplica(*copia);
        if (estado.resultado == ResultadoEsquema::MasNuevo)
            return u"es de una versión posterior de estos programas."_s;
        return estado.resultado == ResultadoEsquema::Fallido ? estado.motivo : QString();
    } catch (const ErrorBase& error) {
        AnotaDetalle(error);
        return u"no se puede leer como base de datos. "_s + error.Texto();
    }
}

void Mueve(const QString& origen, const QString& destino) {
    if (!TomaElLugar(origen, destino))
        throw Error(NumeroError::AccesoAlDisco, u"No se puede reemplazar el archivo '%1'."_s.arg(destino));
}

void Anota(const QString& base, const Firma& firma, const QString& copia) {
    const std::unique_ptr<Base> restaurada = Base::Abre(base);
    Transaccion transaccion = restaurada->Comienza();
    Bitacora(*restaurada)
        .Anota(firma, {.suceso = Suceso::Restauracion, .despues = u"copia="_s + QFileInfo(copia).fileName()});
    transaccion.Confirma();
}

/// Copies the file's base and reads the copy through.
void CopiaArchivo(const QString& base, const QString& copia, Avance& avance) {
    {
        const std::unique_ptr<Base> original = Base::Abre(base);
        const TrabajoSeguido seguido(*original, avance, 0);
        original->CopiaEn(copia);
    }
    const QStringList defectos = Respaldos::Defectos(*Base::Abre(copia));
    if (!defectos.isEmpty())
        throw Error(NumeroError::AccesoAlDisco,
                    u"La copia de respaldo salió dañada, con %1."_s.arg(CuentaDefectos(defectos)));
}

/// Whether a server's base opens as one of these programs.
bool SeAbre(const QString& conexion) {
    try {
        (void)Base::Abre(conexion);
        return true;
    } catch (const ErrorDeServidor& falla) {
        const bool esDeLaBase =
            falla.Falla() == FallaDeServidor::SinBase || falla.Falla() == FallaDeServidor::BaseAjena;
        if (!esDeLaBase)
            throw;
        return false;
    }
}

/// A folder beside the files that are to get their place by a rename, gone with the object.
class LugarDePaso {
  public:
    explicit LugarDePaso(const QString& carpeta) : m_lugar(carpeta + u"/.respaldo-XXXXXX"_s) {
        if (!m_lugar.isValid() || !HazPrivado(m_lugar.path()))
            throw FallaDeCarpeta(carpeta);
    }
    [[nodiscard]] QString Archivo() const { return m_lugar.filePath(u"copia"_s); }

  private:
    QTemporaryDir m_lugar;
};

/// What a broken base left behind must not be played back over the sound one; but it is needed where the base stays.
void Reemplaza(const QString& rutaBase, const LugarDePaso& nueva, const QString& guardado) {
    const bool conDiario = QFileInfo::exists(rutaBase + kDiario);
    if (conDiario)
        Mueve(rutaBase + kDiario, guardado + kDiario);
    try {
        Mueve(nueva.Archivo(), rutaBase);
    } catch (const Error&) {
        if (conDiario)
            Mueve(guardado + kDiario, rutaBase + kDiario);
        throw;
    }
}

} // namespace

QString CuentaDefectos(const QStringList& defectos) {
    for (const QString& defecto : defectos)
        qInfo().noquote() << defecto;
    return defectos.size() == 1 ? u"un defecto"_s : u"%1 defectos"_s.arg(defectos.size());
}

Respaldos::Respaldos(QString rutaBase, QString carpeta, const Reloj& reloj, Formularios formularios)
    : m_rutaBase(std::move(rutaBase))
    , m_carpeta(std::move(carpeta))
    , m_reloj(&reloj)
    , m_formularios(std::move(formularios)) {
    m_carpeta = QDir::fromNativeSeparators(m_carpeta); // as the list spells its files: they are compared
}

QStringList Respaldos::Defectos(Base& base) {
    return base.Defectos();
}

const QString& Respaldos::Extension() const {
    return EsDeServidor(m_rutaBase) ? kExtensionDeServidor : kExtension;
}

QString Respaldos::HazUna(Avance& avance) const {
    CreaCarpetaPrivada(m_carpeta);
    const LugarDePaso lugar(m_carpeta);
    if (EsDeServidor(m_rutaBase))
        VuelcaBase(m_rutaBase, lugar.Archivo(), avance);
    else
        CopiaArchivo(m_rutaBase, lugar.Archivo(), avance);
    QString destino = NombreLibre(Extension());
    CopiaPrivada(lugar.Archivo(), destino); // the engine doesn't wait for the disk in a copy of its own
    return destino;
}

QString Respaldos::Haz(Avance& avance) const {
    QString copia = HazUna(avance);
    QuitaSobrantes(copia);
    return copia;
}

/// Copies made within a second get the marks of the seconds that follow, so that their order stays. A mark further
/// ahead than that comes from a clock that was wrong.
QString Respaldos::NombreLibre(const QString& extension) const {
    QDateTime momento = m_reloj->Ahora();
    const QList<Respaldo> anteriores = Lista();
    if (!anteriores.isEmpty() && momento.secsTo(anteriores.first().fecha) < kRafaga)
        momento = std::max(momento, anteriores.first().fecha.addSecs(1));
    QString ruta;
    do {
        ruta = m_carpeta + u'/' + kPrefijo + momento.toString(kMarca) + extension;
        momento = momento.addSecs(1);
    } while (QFileInfo::exists(ruta));
    return ruta;
}

QList<Respaldo> Respaldos::Lista() const {
    QList<Respaldo> lista;
    const QDir::SortFlags alReves = QDir::Name | QDir::Reversed;
    for (const QFileInfo& archivo :
         QDir(m_carpeta).entryInfoList({kPrefijo + u'*' + Extension()}, QDir::Files, alReves)) {
        const QDateTime fecha = QDateTime::fromString(archivo.completeBaseName().sliced(kPrefijo.size()), kMarca);
        if (fecha.isValid())
            lista.append({archivo.filePath(), fecha, archivo.size()});
    }
    return lista;
}

/// The copy that was just made stays whatever its mark says: the clock may have been set back.
void Respaldos::QuitaSobrantes(const QString& reciente) const {
    QList<Respaldo> anteriores = Lista();
    anteriores.removeIf([&](const Respaldo& copia) { return copia.ruta == reciente; });
    for (const Respaldo& copia : anteriores.mid(kConservados - 1))
        QFile::remove(copia.ruta);
}

Veredicto Respaldos::Restaura(const QString& archivo, const Firma& firma, Avance& avance) const {
    if (!QFileInfo(archivo).isFile())
        return Veredicto::Critico(u"No se encuentra el archivo '%1'."_s.arg(archivo));
    CreaCarpetaPrivada(m_carpeta);
    return EsDeServidor(m_rutaBase) ? RestauraEnServidor(archivo, firma, avance)
                                    : RestauraArchivo(archivo, firma, avance);
}

/// The new database is whole before anybody is asked to leave the old one, and nobody changes that one between the copy
/// of it and the change of names.
Veredicto Respaldos::RestauraEnServidor(const QString& archivo, const Firma& firma, Avance& avance) const {
    BaseDePaso nueva(m_rutaBase);
    if (const QString motivo = nueva.Llena(archivo, m_formularios, avance); !motivo.isEmpty())
        return Veredicto::Critico(u"El archivo '%1' no se puede restaurar: %2"_s.arg(archivo, motivo));
    QString guardado;
    {
        const bool seAbre = SeAbre(m_rutaBase);
        const std::optional<BaseQuieta> vigente = seAbre ? BaseQuieta::De(m_rutaBase) : std::nullopt;
        if (seAbre && !vigente)
            return Veredicto::Critico(kServidorEnUso);
        if (seAbre)
            guardado = HazUna(avance);
        ConservaLoNumeradoEnServidor(nueva.Conexion(), seAbre);
        Anota(nueva.Conexion(), firma, archivo);
    }
    if (nueva.TomaElLugar(guardado.isEmpty()) == BaseDePaso::Cambio::EnUso)
        return Veredicto::Critico(kServidorEnUso);
    if (!guardado.isEmpty())
        QuitaSobrantes(guardado);
    return Veredicto::Bien();
}

/// The numbers are read from the base itself or, when it is gone, from its newest copy.
void Respaldos::ConservaLoNumeradoEnServidor(const QString& nueva, bool seAbre) const {
    if (seAbre) {
        ConservaNumeros(nueva, {m_rutaBase, {}}, m_formularios);
        return;
    }
    const QList<Respaldo> copias = Lista();
    if (copias.isEmpty())
        return;
    const BaseDePaso ultima(m_rutaBase);
    SinAvance sinAvance;
    if (ultima.Llena(copias.constFirst().ruta, m_formularios, sinAvance).isEmpty())
        ConservaNumeros(nueva, {QString(), {ultima.Conexion()}}, m_formularios);
}

Veredicto Respaldos::RestauraArchivo(const QString& archivo, const Firma& firma, Avance& avance) const {
    const LugarDePaso lugar(QFileInfo(m_rutaBase).absolutePath());
    CopiaPrivada(archivo, lugar.Archivo());
    const QString motivo = MotivoDeRechazo(lugar.Archivo(), m_formularios);
    if (!motivo.isEmpty())
        return Veredicto::Critico(u"El archivo '%1' no se puede restaurar: %2"_s.arg(archivo, motivo));
    if (Veredicto veredicto = ExigeLibre(); !veredicto)
        return veredicto;
    const TrabajoUnico trabajo(m_rutaBase);
    const QString guardado = GuardaLoQueHay(avance);
    ConservaLoNumerado(lugar.Archivo(), guardado);
    Anota(lugar.Archivo(), firma, archivo);
    Reemplaza(m_rutaBase, lugar, guardado);
    QuitaSobrantes(guardado); // only now: the oldest may be the one that was asked for
    return Veredicto::Bien();
}

/// A program that opens the base in the very moment between this and the change keeps the old file, and the engine
/// refuses its writes because the file has moved; on Windows it makes the change fail, and all stays as it was.
Veredicto Respaldos::ExigeLibre() const {
    const QStringList programas = ProgramasQueUsan(m_rutaBase);
    if (!programas.isEmpty())
        return Veredicto::Critico(
            u"La base está en uso por otro programa: %1. Ciérrelo antes de restaurar."_s.arg(programas.join(u", "_s)));
    if (!SeDejaReemplazar(m_rutaBase))
        return Veredicto::Critico(
            u"La base está en uso por otro programa: la consola, el módulo o xa518-lote. Cierre los demás programas"
            " antes de restaurar."_s);
    try {
        Base::Abre(m_rutaBase)->ExigeSola();
    } catch (const ErrorBase& error) {
        if (error.Es(NumeroError::BaseBloqueada))
            return Veredicto::Critico(
                u"La base está en uso por otro programa o es de sólo lectura. Inténtelo de nuevo cuando esté"
                " libre."_s);
        // A base that is missing or can't be read is what a copy is restored for.
    }
    return Veredicto::Bien();
}

void Respaldos::ConservaLoNumerado(const QString& nueva, const QString& guardado) const {
    QStringList copias;
    for (const Respaldo& copia : Lista())
        copias.append(copia.ruta);
    ConservaNumeros(nueva, {copias.contains(guardado) ? guardado : QString(), copias}, m_formularios);
}

QString Respaldos::GuardaLoQueHay(Avance& avance) const {
    QString destino = NombreLibre(kExtensionDanada);
    if (!QFileInfo::exists(m_rutaBase))
        return destino;
    try {
        return HazUna(avance);
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
        // It can't be read, or its faults go into the copy: the bytes are kept, in case that somebody can mend them.
    }
    CopiaPrivada(m_rutaBase, destino);
    return destino;
}

} // namespace xa518
