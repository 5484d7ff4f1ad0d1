#include "widgets/FieldKeys.h"

#include "widgets/KeyHint.h"
#include "widgets/WidgetHelpers.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSinLimite = 32767;
constexpr int kPuntoDecimal = '.';

bool EsEntrar(const QKeyEvent& tecla) {
    return tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter;
}

/// The code of a key that types: Backspace, or whatever a field would take, which goes beyond what can be seen; 0 for
/// all others.
int CodigoDe(const QKeyEvent& tecla) {
    if (tecla.key() == Qt::Key_Backspace)
        return kRetroceso;
    const bool esAtajo =
        tecla.modifiers() == Qt::ControlModifier || tecla.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    const QString texto = tecla.text();
    if (texto.isEmpty() || texto.front().category() == QChar::Other_Control)
        return 0;
    return esAtajo && texto.front().category() != QChar::Other_Format ? 0 : texto.front().unicode();
}

bool EsDecimalDelTeclado(const QKeyEvent& tecla) {
    return tecla.modifiers().testFlag(Qt::KeypadModifier) && tecla.text() == u",";
}

struct FiltroDeCampo {
    FiltroTecla filtra;
    TeclasQuePasan pasan;
};

/// All that one field does with its keys: one object per field, so that the order of attaching doesn't matter.
class TeclasDeCampo final : public QObject {
    Q_OBJECT
  public:
    explicit TeclasDeCampo(QLineEdit& campo);
    static TeclasDeCampo& De(QLineEdit& campo);

    bool eventFilter(QObject* objeto, QEvent* evento) override;

    QList<std::function<void()>> avisos;
    QList<FiltroDeCampo> filtros;
    std::function<void()> entrar;
    Gestos gestos;
    int limite = kSinLimite;

  private:
    [[nodiscard]] bool Pulsada(const QKeyEvent& tecla);
    [[nodiscard]] bool Pega(const QKeyEvent& tecla) const;
    [[nodiscard]] bool Escribe(const QKeyEvent& tecla);
    [[nodiscard]] bool Compone(const QInputMethodEvent& evento);
    [[nodiscard]] bool Raton(const QMouseEvent& evento) const;
    [[nodiscard]] int Filtra(int tecla, qsizetype nuevos = 1) const;
    [[nodiscard]] bool Cabe(qsizetype nuevos) const;
    void Avisa() const;
    void VaciaPortapapeles(Gesto gesto) const;

    QLineEdit* m_campo;
    bool m_reenvio = false;
};

TeclasDeCampo::TeclasDeCampo(QLineEdit& campo) : QObject(&campo), m_campo(&campo) {
    if (campo.inputMask().isEmpty()) { // a mask has its own length
        limite = campo.maxLength();
        campo.setMaxLength(kSinLimite); // the field's own limit would cut the texts that the program sets
    }
    campo.setAcceptDrops(false);
    campo.installEventFilter(this);
}

TeclasDeCampo& TeclasDeCampo::De(QLineEdit& campo) {
    auto* teclas = campo.findChild<TeclasDeCampo*>(QString(), Qt::FindDirectChildrenOnly);
    return teclas ? *teclas : *new TeclasDeCampo(campo); // the field owns it
}

bool TeclasDeCampo::eventFilter(QObject* objeto, QEvent* evento) {
    if (m_reenvio)
        return false;
    switch (evento->type()) {
    case QEvent::KeyPress: return Pulsada(*static_cast<QKeyEvent*>(evento));
    case QEvent::InputMethod: return Compone(*static_cast<QInputMethodEvent*>(evento));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease: return Raton(*static_cast<QMouseEvent*>(evento));
    case QEvent::ContextMenu: return true;
    default: return QObject::eventFilter(objeto, evento);
    }
}

bool TeclasDeCampo::Pulsada(const QKeyEvent& tecla) {
    if (Pega(tecla))
        return true;
    const bool escribe = CodigoDe(tecla) != 0;
    if (escribe || EsEntrar(tecla) || tecla.key() == Qt::Key_Delete)
        Avisa();
    if (EsEntrar(tecla) && entrar) {
        entrar();
        return true;
    }
    return escribe && !m_campo->isReadOnly() && Escribe(tecla);
}

bool TeclasDeCampo::Pega(const QKeyEvent& tecla) const {
    if (tecla.key() == Qt::Key_Menu) {
        VaciaPortapapeles(Gesto::TeclaMenu);
        return true;
    }
    if (tecla.key() == Qt::Key_Insert && tecla.modifiers() == Qt::ShiftModifier) {
        VaciaPortapapeles(Gesto::ShiftInsert);
        return true;
    }
    return tecla.matches(QKeySequence::Paste);
}

/// True when the key was dealt with here; otherwise the field types it.
bool TeclasDeCampo::Escribe(const QKeyEvent& tecla) {
    const int codigo = CodigoDe(tecla);
    const int salida = Filtra(EsDecimalDelTeclado(tecla) && !filtros.isEmpty() ? kPuntoDecimal : codigo);
    if (salida == codigo || salida == kRetroceso)
        return false;
    if (salida != 0)
        m_campo->insert(QChar(static_cast<char16_t>(salida)));
    return true;
}

/// What dead keys and input methods put together passes the same way, character by character.
bool TeclasDeCampo::Compone(const QInputMethodEvent& evento) {
    QString pasan;
    for (const QChar c : evento.commitString()) {
        Avisa();
        const int salida = Filtra(c.unicode(), pasan.size() + 1);
        if (salida != 0)
            pasan.append(QChar(static_cast<char16_t>(salida)));
    }
    if (pasan == evento.commitString())
        return false;
    QInputMethodEvent filtrado(evento.preeditString(), evento.attributes());
    filtrado.setCommitString(pasan, evento.replacementStart(), evento.replacementLength());
    const QScopedValueRollback<bool> reenvio(m_reenvio, true);
    QCoreApplication::sendEvent(m_campo, &filtrado);
    return true;
}

/// The middle button would paste what is selected elsewhere.
bool TeclasDeCampo::Raton(const QMouseEvent& evento) const {
    if (evento.button() == Qt::RightButton && evento.type() != QEvent::MouseButtonRelease)
        VaciaPortapapeles(Gesto::BotonDerecho);
    return evento.button() == Qt::RightButton || evento.button() == Qt::MiddleButton;
}

/// What the filters make of a key, 0 when one of them or the limit stops it; a word at the field then says why, and
/// stays while what was typed does: whoever types 125,50 at one go sees it beside the 12550 that came of it.
int TeclasDeCampo::Filtra(int tecla, qsizetype nuevos) const {
    for (const auto& [filtra, pasan] : filtros) {
        tecla = filtra(tecla);
        if (tecla == 0) {
            MuestraPista(*m_campo, pasan());
            return 0;
        }
    }
    if (tecla != kRetroceso && !Cabe(nuevos)) {
        MuestraPista(*m_campo, u"Hasta %1 caracteres"_s.arg(limite));
        return 0;
    }
    if (tecla == kRetroceso || m_campo->hasSelectedText())
        QuitaPista(*m_campo);
    return tecla;
}

bool TeclasDeCampo::Cabe(qsizetype nuevos) const {
    return m_campo->text().size() - m_campo->selectedText().size() + nuevos <= limite;
}

void TeclasDeCampo::Avisa() const {
    for (const auto& aviso : avisos)
        aviso();
}

void TeclasDeCampo::VaciaPortapapeles(Gesto gesto) const {
    if (gestos.testFlag(gesto))
        QGuiApplication::clipboard()->setText(QString());
}

} // namespace

void FiltraTeclas(QLineEdit& campo, FiltroTecla filtro, TeclasQuePasan pasan) {
    TeclasDeCampo::De(campo).filtros.append({std::move(filtro), std::move(pasan)});
}

void FiltraTeclas(QLineEdit& campo, FiltroTecla filtro, const QString& pasan) {
    FiltraTeclas(campo, std::move(filtro), [pasan] { return pasan; });
}

void AlTeclear(QLineEdit& campo, std::function<void()> aviso) {
    TeclasDeCampo::De(campo).avisos.append(std::move(aviso));
}

void LimitaTecleo(QLineEdit& campo, int largo) {
    TeclasDeCampo::De(campo).limite = largo;
}

void TextoSinCorte(QLineEdit& campo) {
    TeclasDeCampo::De(campo);
}

int LimiteDeTecleo(const QLineEdit& campo) {
    const auto* teclas = campo.findChild<TeclasDeCampo*>(QString(), Qt::FindDirectChildrenOnly);
    return teclas ? teclas->limite : campo.maxLength();
}

void SinPegar(QLineEdit& campo, Gestos gestos) {
    TeclasDeCampo::De(campo).gestos = gestos;
}

void EntrarComoTab(QLineEdit& campo) {
    TeclasDeCampo::De(campo).entrar = [] { EnviaTecla(u"TAB"_s); };
}

void EntrarSiHayTexto(QLineEdit& campo) {
    TeclasDeCampo::De(campo).entrar = [&campo] {
        if (!campo.text().trimmed().isEmpty())
            EnviaTecla(u"TAB"_s);
    };
}

} // namespace xa518

#include "FieldKeys.moc"
