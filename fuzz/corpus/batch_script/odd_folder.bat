cd "\odd "name"" 
run % ^ & | > < ; `x` $(y)
exit
after the end
