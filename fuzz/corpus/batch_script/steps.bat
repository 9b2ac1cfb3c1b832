cd "a"
CD "/b"
e:
cd "\c"
cd ""
run
