// Target > Options: the gateway's network port numbers and its time server.
#pragma once

struct AppContext;

// Fills the options dialog from the project, shows it and, on OK, takes back every port number
// that reads as a positive number, the time server address as typed and the check box. Does not
// mark the project edited: the values reach the file at the next save.
void EditOptions(AppContext& ctx);
