#ifndef ORVIKCORE_TESTS_FAULTSUBJECTS_H
#define ORVIKCORE_TESTS_FAULTSUBJECTS_H

// Code that goes wrong on purpose, each in a function of its own reached through a pointer, as
// foreign code is.

/// Calls @p subject so that the compiler knows nothing about it.
void runSubject(void (*subject)());

void writeToNull();
void callPureVirtual();
void callAbort();
void reportInvalidParameter();
void reportInvalidParameterWithoutDetails();
void divideByZero();
void overflow();
void useDenormal();
void underflow();
void roundInexactly();
void divideZeroByZero();
void overflowTheStack();

#endif
