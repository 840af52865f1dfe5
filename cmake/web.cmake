# How the programs of the browser's build are linked. They end in .js, with the code beside them in a .wasm.

# Small, since it must come over a network; what works on pixels is fast, with wide registers.
foreach(pixels graphics scripts sdl_device)
  target_compile_options(${pixels} PRIVATE -O3 -msimd128)
endforeach()

# The game is a module that the page loads: the page gives it its files and calls it, see program/web/main.cpp.
target_link_options(mygame PRIVATE --no-entry -sMODULARIZE -sEXPORT_ES6 -sENVIRONMENT=web -sALLOW_MEMORY_GROWTH
  -sINITIAL_MEMORY=8MB -sTOTAL_STACK=512KB -sMALLOC=emmalloc -sFORCE_FILESYSTEM "-sEXPORTED_RUNTIME_METHODS=FS"
  -sSUPPORT_ERRNO=0)
# The tool runs under node, with the machine's own files.
target_link_options(replay PRIVATE -sNODERAWFS -sENVIRONMENT=node -sALLOW_MEMORY_GROWTH -sEXIT_RUNTIME)
