#pragma once

class QString;
class frmMAIN;

// The restore once the backup is chosen: the store closed, every window but the frame unloaded,
// the backup put in the store's place, the store opened again and the collections window loaded
// anew. Runs from the event loop, never from a handler of a window it unloads. When the store
// does not open afterwards, the message names the recovery copy and how to put it back; the
// program goes on with an empty collections window and no open store.
void Ripristina(frmMAIN& frame, const QString& backup);
