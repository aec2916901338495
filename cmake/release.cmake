# What the release build has beyond optimization, for every target of the project.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    # Two builds of the same sources are the same bytes, wherever they lie.
    add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
    # Hardened: position-independent, guarded stacks, checked library calls, all addresses bound at
    # the start and read-only from then on.
    add_compile_options(-fPIE -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    add_link_options(-pie -Wl,-z,relro -Wl,-z,now)
endif()
