#pragma once

namespace xa518 {

/// The console that a program writes its answers to, for as long as this lives. On Windows a program with windows has
/// none: it joins the one that it was called from, if there is one, where its output isn't led elsewhere already, and
/// while it writes the console reads UTF-8. Elsewhere there is nothing to do.
class ConsolaQueLlama final {
  public:
    ConsolaQueLlama();
    ConsolaQueLlama(ConsolaQueLlama&&) = delete;
    ConsolaQueLlama& operator=(ConsolaQueLlama&&) = delete;
    ConsolaQueLlama(const ConsolaQueLlama&) = delete;
    ConsolaQueLlama& operator=(const ConsolaQueLlama&) = delete;
    ~ConsolaQueLlama(); // NOLINT(performance-trivially-destructible): not on Windows

  private:
    [[maybe_unused]] unsigned m_codigosDeAntes = 0; ///< the console's code page; 0: there is no console
};

} // namespace xa518
