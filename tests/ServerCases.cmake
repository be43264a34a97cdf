# The cases that also run on a server, as filters of the test programs, and which of them are left out
# there, each for its reason.

set(SERVER_CASES_jet)
set(SERVER_LEFT_OUT_jet)

set(SERVER_CASES_system)
set(SERVER_LEFT_OUT_system)
