#pragma once

#include <functional>

// One running program per user. The first start holds a lock in the user's runtime folder and
// listens beside it; a later start asks it to come to the front and ends. True for the first,
// which from now on calls `mostra` each time a later start asks.
bool PrimaIstanza(std::function<void()> mostra);
