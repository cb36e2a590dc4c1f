/* The tuning files, in flash. */
    .section .documents, "a"
    .macro document name, file
    .global \name\()_begin, \name\()_end
\name\()_begin:
    .incbin "\file"
\name\()_end:
    .endm
    document two_mic_speaker, two-mic-speaker.json
    document six_mic_conference, six-mic-conference.json
    document minimal, minimal.json
