#pragma once

class Form1;

// "Crea Nuovo Campo": type chooser, properties dialog, the new field row and the values it gives
// to existing records.
void CreaNuovoCampo(Form1& form);
// "Elimina Campo": removes the selected field's row after confirmation.
void EliminaCampo(Form1& form);
