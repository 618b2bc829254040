#pragma once

#include <functional>
#include <type_traits>
#include <utility>

// The boundary around the dispatch of user events: a failure that no operation traps is shown
// in a message box with the engine's text, the operation is abandoned and the program goes on.
void EseguiProtetto(const std::function<void()>& azione);

// Wraps a handler so that it runs inside the boundary; for connect(). Signal arguments the
// handler does not take are dropped.
template <typename F> auto Protetto(F azione) {
    return [azione = std::move(azione)](auto&&... argomenti) {
        EseguiProtetto([&] {
            if constexpr (std::is_invocable_v<const F&, decltype(argomenti)...>)
                azione(std::forward<decltype(argomenti)>(argomenti)...);
            else
                azione();
        });
    };
}
