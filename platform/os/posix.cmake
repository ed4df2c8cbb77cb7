target_sources(OrvikOs PRIVATE
    src/posix/AppendFile.cpp
    src/posix/AtomicFile.cpp
    src/posix/Directory.cpp
    src/posix/EndRequestHandler.cpp
    src/posix/Environment.cpp
    src/posix/Event.cpp
    src/posix/FileWriting.cpp
    src/posix/InterpreterSignal.cpp
    src/posix/Interrupt.cpp
    src/posix/Library.cpp
    src/posix/MemoryMappedFile.cpp
    src/posix/Process.cpp
    src/posix/RunApart.cpp
    src/posix/System.cpp
    src/posix/Thread.cpp
    src/posix/ThreadWatch.cpp
    src/posix/WaitHandles.cpp)
if(orvik_is_x86_64)
    target_sources(OrvikOs PRIVATE
        src/posix/FaultRecord.cpp
        src/posix/FaultRegions.cpp
        src/posix/FaultSignals.cpp
        src/posix/FaultThunk.cpp
        src/posix/FaultUnwind.cpp)
else()
    target_sources(OrvikOs PRIVATE src/posix/FaultNone.cpp)
endif()
find_package(Threads REQUIRED)
target_link_libraries(OrvikOs PRIVATE Threads::Threads ${CMAKE_DL_LIBS})
