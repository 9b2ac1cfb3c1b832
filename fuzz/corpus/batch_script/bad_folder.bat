cd "unclosed
run
