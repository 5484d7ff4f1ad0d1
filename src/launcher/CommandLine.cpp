#include "launcher/CommandLine.h"

#include "data/Base.h"
#include "data/ServerFailure.h"
#include "family/Configuration.h"
#include "family/Startup.h"
#include "family/WorkLock.h"
#include "family/WorkSeat.h"
#include "launcher/Declarants.h"
#include "launcher/Installation.h"
#include "launcher/LogListing.h"
#include "launcher/Moving.h"
#include "launcher/Session.h"
#include "launcher/TextChecks.h"
#include "platform/UserName.h"
#include "values/Error.h"
#include "values/Message.h"
#include "values/Progress.h"
#include "values/Text.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTextStream>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

enum Codigo { Hecho = 0, Rechazado = 2, Fallo = 3 };

const QString kJson = u"json"_s;

const QString kAyuda = uR"(Uso: consola [ORDEN [OPCIONES]]

Instala la base de datos que comparten los módulos, lleva el registro de declarantes y pasa las declaraciones
grabadas a las copias enviadas. No transmite nada: cada una se presenta a ZOLMA por su propio canal.
Sin ninguna orden abre su ventana, que hace lo mismo e inicia el módulo.

Órdenes:
  --modulo                   Abre la ventana, y el módulo junto a ella.
  --instalar                 Prepara la carpeta, la base de datos, el catálogo, el grupo de trabajo y XA000.INI.
                             Sobre una instalación anterior renueva el catálogo y conserva todos los datos.
      --carpeta DIR          Carpeta de la instalación. Por omisión, la que nombra XA000.INI o, si no nombra
                             ninguna, ~/.local/share/xa518.
      --ejemplo              Agrega una empresa de ejemplo y archivos para importar.
      --servidor CONEXIÓN    Pone la base en un servidor PostgreSQL: «host=servidor dbname=base sslmode=verify-full» o
                             «service=nombre». Crea en ella las tablas y los grupos xa518_dueno, xa518_trabajo y
                             xa518_lectura, y escribe los permisos que les dio.
  --declarante RUC           Registra un declarante o cambia sus datos.
      --nombre TEXTO         Su nombre o razón social, de 50 caracteres como máximo.
      --usuario U            El usuario a quien pertenece, de 50 caracteres como máximo. Por omisión, el de XA000.INI.
  --enviar RUC AAAAMM        Pasa la declaración registrada de ese período a las copias enviadas de este equipo.
                             Escribe el número de la copia y el de control. Antes hace una copia de respaldo.
                             No la transmite: hay que presentarla a ZOLMA por su propio canal.
      --otro-original        Admite otro original de un mes ya enviado: sin esta opción se rechaza la declaración
                             que no dice que rectifica o sustituye a la enviada.
      --formulario NNNN      El formulario de la declaración; hace falta sólo cuando el equipo lleva varios.
  --respaldar                Hace una copia de respaldo de la base y escribe su nombre. Se conservan las últimas 20,
                             en la subcarpeta RESPALDOS de la instalación.
  --restaurar ARCHIVO        Pone una copia de respaldo en el lugar de la base, después de guardar la que había.
                             Los números ya dados y los informes registrados no vuelven atrás.
  --mudar DESTINO            Lleva la base entera a un servidor (su texto de conexión) o de vuelta a un archivo nuevo,
                             compara todas las tablas y sólo entonces cambia XA000.INI. La base anterior queda igual.
  --bitacora                 Escribe quién cambió qué, y cuándo: lo más reciente primero, un cambio por línea.
      --ruc RUC              Sólo los cambios de ese declarante.
      --periodo AAAAMM       Sólo los de ese período.
      --usuario U            Sólo los de ese usuario.
      --csv                  En columnas separadas por comas, con su encabezado.
      --json                 Como un objeto JSON, también cuando la orden se rechaza o falla.
  --help                     Muestra esta ayuda.
  --version                  Muestra la versión.

Mientras haya una declaración abierta en el módulo, o trabaje xa518-lote, se rechazan --instalar, --enviar,
--restaurar y --mudar.

Código de salida: 0 hecho; 2 rechazado, sin cambiar nada; 3 falló la base de datos o un archivo.
)"_s;

/// Without an order the window is meant, and whoever comes here then has no screen for it.
const QString kSinPantalla = u"No hay una pantalla en la que abrir la ventana. Sin pantalla, indíquele una orden, como"
                             " consola --instalar o consola --enviar RUC AAAAMM. Vea consola --help."_s;

/// What was asked can't be done; nothing has been written.
class Rechazo : public Error {
  public:
    explicit Rechazo(const QString& texto) : Error(NumeroError::ArgumentoInvalido, texto) {}
};

/// One run of the program: its options, where it writes and what surrounds it.
struct Pedido {
    const QCommandLineParser& opciones;
    QTextStream& salida;
    const EntornoConsola& entorno;
    ArchivoPerfil perfil;
};

void Exige(const Veredicto& veredicto) {
    if (!veredicto)
        throw Rechazo(veredicto.Motivo().texto);
}

void ExigeEscritura(const Base& base) {
    if (const QString motivo = PorQueNoSeEscribe(base); !motivo.isEmpty())
        throw Rechazo(motivo);
}

void Instala(const Pedido& pedido) {
    const QString carpeta = pedido.opciones.isSet(u"carpeta"_s)
                                ? pedido.opciones.value(u"carpeta"_s)
                                : Instalacion::CarpetaVigente(pedido.perfil, pedido.entorno.carpeta);
    if (carpeta.isEmpty())
        throw Rechazo(u"La carpeta de la instalación no puede quedar en blanco."_s);
    const QString servidor = pedido.opciones.value(u"servidor"_s);
    if (pedido.opciones.isSet(u"servidor"_s))
        Exige(ValidaConexion(servidor));
    Instalacion instalacion(carpeta, pedido.perfil, pedido.entorno.formularios, servidor);
    Exige(instalacion.Valida(pedido.entorno.usuario));
    QStringList hecho = instalacion.Instala(pedido.entorno.usuario);
    if (pedido.opciones.isSet(u"ejemplo"_s))
        hecho += instalacion.InstalaEjemplo(pedido.entorno.reloj);
    pedido.salida << hecho.join(u'\n') << '\n';
}

void RegistraDeclarante(const Pedido& pedido) {
    if (!pedido.opciones.isSet(u"nombre"_s))
        throw Rechazo(u"Falta la opción --nombre."_s);
    Sesion sesion(pedido.entorno);
    const std::unique_ptr<Base> base = sesion.Abre();
    ExigeEscritura(*base);
    Declarantes declarantes(*base);
    Declarante declarante{.ruc = Ruc(pedido.opciones.value(u"declarante"_s)),
                          .nombre = pedido.opciones.value(u"nombre"_s),
                          .usuario = pedido.opciones.value(u"usuario"_s)};
    const bool estaba = declarantes.Busca(declarante.ruc).has_value();
    if (!estaba && declarante.usuario.isEmpty())
        declarante.usuario = sesion.Usuario();
    Exige(declarantes.Registra(declarante, sesion.SuFirma()));
    pedido.salida << (estaba ? u"Declarante cambiado: "_s : u"Declarante registrado: "_s) << declarante.ruc.Texto()
                  << '\n';
}

Periodo LeePeriodo(const QString& periodo) {
    const std::optional<Periodo> leido = Periodo::DeTabla(periodo);
    if (!leido || leido->EsNinguno())
        throw Rechazo(u"El período «%1» no es válido: va como AAAAMM."_s.arg(periodo));
    return *leido;
}

QString FormularioPedido(const Pedido& pedido) {
    QStringList numeros;
    for (const Formulario& formulario : pedido.entorno.formularios)
        numeros.append(formulario.numero);
    QString numero = pedido.opciones.value(u"formulario"_s);
    if (numero.isEmpty() && numeros.size() == 1)
        return numeros.constFirst();
    if (!numeros.contains(numero))
        throw Rechazo(u"Indique el formulario con --formulario, uno de éstos: %1."_s.arg(numeros.join(u", "_s)));
    return numero;
}

void Envia(const Pedido& pedido) {
    const ClaveDeclaracion clave{.ruc = Ruc(pedido.opciones.value(u"enviar"_s)),
                                 .periodo = LeePeriodo(pedido.opciones.positionalArguments().constFirst()),
                                 .formulario = FormularioPedido(pedido)};
    const bool admite = pedido.opciones.isSet(u"otro-original"_s);
    Sesion sesion(pedido.entorno);
    ExigeEscritura(*sesion.Abre());
    const ResultadoEnvio resultado = sesion.Envia(clave, admite ? OtroOriginal::Admitido : OtroOriginal::Rechazado);
    if (resultado.veredicto.ElCampo() == CampoDeEnvio::Rectifica)
        throw Rechazo(resultado.veredicto.Motivo().texto +
                      u" Para enviarla como otro original agregue --otro-original."_s);
    Exige(resultado.veredicto);
    pedido.salida << u"Copia enviada: "_s << resultado.correl << u"\nNúmero de control: "_s << resultado.control << '\n'
                  << kNadaSeTransmite << '\n';
}

void Respalda(const Pedido& pedido) {
    SinAvance sinAvance;
    const QString ruta = Sesion(pedido.entorno).Copias().Haz(sinAvance);
    pedido.salida << u"Copia de respaldo: "_s << ruta << '\n';
}

void Restaura(const Pedido& pedido) {
    const QString archivo = QFileInfo(pedido.opciones.value(u"restaurar"_s)).absoluteFilePath();
    Sesion sesion(pedido.entorno);
    const Respaldos copias = sesion.Copias();
    SinAvance sinAvance;
    Exige(copias.Restaura(archivo, sesion.SuFirma(), sinAvance));
    pedido.salida << u"Base restaurada de: "_s << archivo << '\n';
}

/// A line for each quarter of the way.
class CuartosDeCamino final : public Avance {
  public:
    explicit CuartosDeCamino(QTextStream& salida) : m_salida(&salida) {}
    void Va(qint64 hecho, qint64 total) override {
        const qint64 cuarto = total == 0 ? 0 : hecho * 4 / total;
        if (cuarto <= m_cuarto)
            return;
        m_cuarto = cuarto;
        *m_salida << u"Mudando la base: %1 %\n"_s.arg(cuarto * 25);
        m_salida->flush();
    }

  private:
    QTextStream* m_salida;
    qint64 m_cuarto = 0;
};

void MudaLaBase(const Pedido& pedido) {
    const QString escrito = pedido.opciones.value(u"mudar"_s);
    const QString destino = EsDeServidor(escrito) ? escrito : QFileInfo(escrito).absoluteFilePath();
    Sesion sesion(pedido.entorno);
    const Mudanza mudanza = sesion.MudanzaA(destino);
    Exige(mudanza.Valida());
    ExigeEscritura(*sesion.Abre());
    CuartosDeCamino camino(pedido.salida);
    const BaseMudada mudada = mudanza.Muda(sesion.SuFirma(), camino);
    for (const QString& linea : mudada.hecho)
        pedido.salida << linea << '\n';
    pedido.salida << TextoDeMudanza(mudada, sesion.RutaBase(), destino) << '\n';
}

void MuestraBitacora(const Pedido& pedido) {
    FiltroDeBitacora filtro{.ruc = pedido.opciones.value(u"ruc"_s), .usuario = pedido.opciones.value(u"usuario"_s)};
    if (pedido.opciones.isSet(u"periodo"_s))
        filtro.periodo = LeePeriodo(pedido.opciones.value(u"periodo"_s));
    const bool csv = pedido.opciones.isSet(u"csv"_s);
    const bool json = pedido.opciones.isSet(kJson);
    if (csv && json)
        throw Rechazo(u"Las opciones --csv y --json no van juntas."_s);
    Sesion sesion(pedido.entorno);
    const std::unique_ptr<Base> base = sesion.Abre();
    const FormaDeLista forma = json ? FormaDeLista::Json : csv ? FormaDeLista::Csv : FormaDeLista::Texto;
    EscribeBitacora(Bitacora(*base).Lista(filtro), forma, pedido.salida);
}

/// With a screen the window has taken it.
void AbreModulo(const Pedido& /*pedido*/) {
    throw Rechazo(kSinPantalla);
}

void MuestraAyuda(const Pedido& pedido) {
    pedido.salida << kAyuda;
}

void MuestraVersion(const Pedido& pedido) {
    pedido.salida << u"consola " XA518_VERSION "\n"_s;
}

/// An order, the options that go with it, and how many arguments stand alone.
struct Orden {
    QString nombre;
    QStringList admite;
    int sueltos;
    void (*ejecuta)(const Pedido&);
};

const QList<Orden>& Ordenes() {
    static const QList<Orden> ordenes = {
        {u"help"_s, {}, 0, MuestraAyuda},
        {u"version"_s, {}, 0, MuestraVersion},
        {u"modulo"_s, {}, 0, AbreModulo},
        {u"instalar"_s, {u"carpeta"_s, u"ejemplo"_s, u"servidor"_s}, 0, Instala},
        {u"declarante"_s, {u"nombre"_s, u"usuario"_s}, 0, RegistraDeclarante},
        {u"enviar"_s, {u"otro-original"_s, u"formulario"_s}, 1, Envia},
        {u"respaldar"_s, {}, 0, Respalda},
        {u"bitacora"_s, {u"ruc"_s, u"periodo"_s, u"usuario"_s, u"csv"_s, kJson}, 0, MuestraBitacora},
        {u"restaurar"_s, {}, 0, Restaura},
        {u"mudar"_s, {}, 0, MudaLaBase},
    };
    return ordenes;
}

void Define(QCommandLineParser& opciones) {
    opciones.addOptions({{u"modulo"_s, {}},
                         {{u"h"_s, u"help"_s}, {}},
                         {{u"v"_s, u"version"_s}, {}},
                         {u"instalar"_s, {}},
                         {u"carpeta"_s, {}, u"DIR"_s},
                         {u"ejemplo"_s, {}},
                         {u"declarante"_s, {}, u"RUC"_s},
                         {u"nombre"_s, {}, u"TEXTO"_s},
                         {u"usuario"_s, {}, u"U"_s},
                         {u"enviar"_s, {}, u"RUC"_s},
                         {u"otro-original"_s, {}},
                         {u"formulario"_s, {}, u"NNNN"_s},
                         {u"respaldar"_s, {}},
                         {u"bitacora"_s, {}},
                         {u"ruc"_s, {}, u"RUC"_s},
                         {u"periodo"_s, {}, u"AAAAMM"_s},
                         {u"csv"_s, {}},
                         {kJson, {}},
                         {u"servidor"_s, {}, u"CONEXIÓN"_s},
                         {u"mudar"_s, {}, u"DESTINO"_s},
                         {u"restaurar"_s, {}, u"ARCHIVO"_s}});
}

/// Answered whatever else the line says.
bool PideAyuda(const QCommandLineParser& opciones) {
    return opciones.isSet(u"help"_s) || opciones.isSet(u"version"_s);
}

void Lee(QCommandLineParser& opciones, const QStringList& argumentos) {
    if (opciones.parse(argumentos) || PideAyuda(opciones))
        return;
    const QStringList desconocidas = opciones.unknownOptionNames();
    throw Rechazo(desconocidas.isEmpty() ? u"Falta o sobra el valor de una opción. Vea consola --help."_s
                                         : u"Opción desconocida: %1. Vea consola --help."_s.arg(desconocidas.first()));
}

const Orden& OrdenPedida(const QCommandLineParser& opciones, const QStringList& argumentos) {
    const QList<Orden>& ordenes = Ordenes();
    const auto pedida = [&](const Orden& orden) { return opciones.isSet(orden.nombre); };
    const auto orden = std::find_if(ordenes.cbegin(), ordenes.cend(), pedida);
    if (orden == ordenes.cend())
        throw Rechazo(argumentos.size() > 1 ? u"Falta una orden. Vea consola --help."_s : kSinPantalla);
    if (PideAyuda(opciones))
        return *orden;
    for (const QString& opcion : opciones.optionNames()) {
        const bool propia = opcion == orden->nombre || orden->admite.contains(opcion) || opcion.size() == 1;
        if (!propia)
            throw Rechazo(u"La opción --%1 no va con --%2. Vea consola --help."_s.arg(opcion, orden->nombre));
    }
    if (opciones.positionalArguments().size() != orden->sueltos)
        throw Rechazo(u"Los argumentos de --%1 no son los esperados. Vea consola --help."_s.arg(orden->nombre));
    return *orden;
}

} // namespace

EntornoConsola EntornoConsola::DelSistema(const Reloj& reloj, Formularios formularios) {
    const QString datos = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString usuario = NombreDelUsuario();
    return {.reloj = reloj,
            .rutaIni = PerfilCompartido().Ruta(),
            .carpeta = datos + u"/xa518"_s,
            .usuario = usuario.isEmpty() ? u"USUARIO"_s : usuario,
            .formularios = std::move(formularios)};
}

int EjecutaConsola(const QStringList& argumentos, const SalidasConsola& salidas, const EntornoConsola& entorno) {
    QTextStream& salida = salidas.salida;
    QTextStream& errores = salidas.errores;
    const auto termina = [&](int codigo, const QString& motivo) {
        errores << u"consola: "_s << motivo << '\n';
        if (argumentos.contains(u"--"_s + kJson))
            EscribeDefecto(codigo, {motivo}, salida);
        return codigo;
    };
    try {
        QCommandLineParser opciones;
        Define(opciones);
        Lee(opciones, argumentos);
        const ArchivoPerfil perfil(entorno.rutaIni);
        OrdenPedida(opciones, argumentos).ejecuta({opciones, salida, entorno, perfil});
        if (const std::optional<Mensaje> aviso = AvisoDeRed(BaseConfigurada(perfil)))
            errores << u"consola: "_s << aviso->texto << '\n';
        return Hecho;
    } catch (const Rechazo& rechazo) {
        return termina(Rechazado, rechazo.Texto());
    } catch (const TrabajoAjeno& ocupado) {
        return termina(Rechazado, ocupado.Texto());
    } catch (const BaseEnUso& ocupada) {
        return termina(Rechazado, ocupada.Texto());
    } catch (const Error& error) {
        const int codigo =
            termina(CodigoDeSalida(error, Fallo), u"%1 (error %2)"_s.arg(error.Texto()).arg(error.Numero()));
        if (!error.Detalle().isEmpty())
            errores << error.Detalle() << '\n';
        return codigo;
    }
}

} // namespace xa518
