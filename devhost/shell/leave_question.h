// The question before the shell ends while its session has pending edits.
#ifndef KTL_DEVHOST_SHELL_LEAVE_QUESTION_H
#define KTL_DEVHOST_SHELL_LEAVE_QUESTION_H

// Asks on standard output whether to leave with changes that are not saved
// and reads the answer from standard input: y or yes leaves, n or no stays;
// after three other answers, at the end of input or on Ctrl-C the shell
// stays. Only a terminal that has gone away leaves without an answer.
bool AgreesToLeave();

#endif
