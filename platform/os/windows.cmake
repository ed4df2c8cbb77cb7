target_sources(OrvikOs PRIVATE
    src/windows/AppendFile.cpp
    src/windows/AtomicFile.cpp
    src/windows/Clipboard.cpp
    src/windows/Directory.cpp
    src/windows/EndRequestHandler.cpp
    src/windows/Environment.cpp
    src/windows/Event.cpp
    src/windows/FaultUnwind.cpp
    src/windows/FaultVector.cpp
    src/windows/FileWriting.cpp
    src/windows/InterpreterSignal.cpp
    src/windows/Interrupt.cpp
    src/windows/Library.cpp
    src/windows/MemoryMappedFile.cpp
    src/windows/MessageSource.cpp
    src/windows/Process.cpp
    src/windows/RunApart.cpp
    src/windows/System.cpp
    src/windows/Thread.cpp
    src/windows/ThreadWatch.cpp)
target_compile_definitions(OrvikOs PRIVATE
    WIN32_LEAN_AND_MEAN NOMINMAX UNICODE _UNICODE _WIN32_WINNT=0x0A00)
