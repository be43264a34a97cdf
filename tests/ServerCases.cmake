# The cases that also run on a server, as filters of the test programs, and which of them are left out
# there, each for its reason.

set(SERVER_CASES_jet
  RecordsetTest.* SharingTest.* KeyedTest.* JetSqlTest.* WholeFileTest.TheOtherContent*)
set(SERVER_LEFT_OUT_jet
  # A file that another tool made.
  RecordsetTest.AFileOfAnotherTool*
  # No statement of the system asks for a mask, and the server has none.
  JetSqlTest.AMask*
  # Another desk's edit of one row holds up nobody who writes another one: ServerSharingTest.
  SharingTest.AnEditHoldsTheLock*
  # A reader holds up no commit, and sees no single state over several reads.
  SharingTest.AnUpdateThatCannotCommit* SharingTest.ReadsTogether* SharingTest.ALockThatLasts*
  SharingTest.ABatchThatCannotCommit*)

set(SERVER_CASES_system *)
set(SERVER_LEFT_OUT_system
  # Files alone.
  ConvertAtOpening* WelcomeTest* SetUpFolder* StrangeCaller.* CheckpointTest.*
  # Of a server a desk makes no copy of the day.
  BackUpTest.*
  # The plans of SQLite.
  StatementPlans.*
  # A desk that opens a database exclusively is turned away while others are connected.
  *APartUnderAnotherDesksLock*
  # Another desk's edit of one row holds up no new part.
  *ANumberTakenByAnotherDesk*)
