create table price_history (product_id int, price decimal(10,2), until date);
create table newsletter_queue (id int primary key, customer_id int, subject varchar(80));
